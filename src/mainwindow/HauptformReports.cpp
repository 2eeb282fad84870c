#include "mainwindow/Hauptform.h"
#include "reportwindows/Report.h"

namespace pescavo {

// One report window for the program's lifetime, made on first use.
Report& Hauptform::reportWindow() {
  if (!m_report) {
    m_report = std::make_unique<Report>(*m_model, m_dialogs, this);
    connect(m_report.get(), &Report::modelChanged, this, &Hauptform::showAll);
  }
  return *m_report;
}

void Hauptform::ReportButton_Click() {
  reportWindow().openSingle();
  showAll();
}

void Hauptform::Optimierung2_Click() {
  reportWindow().openAllScenarios();
  showAll();
}

}  // namespace pescavo
