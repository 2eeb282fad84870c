#include "mainwindow/Hauptform.h"

namespace pescavo {

void Hauptform::Optimierung2_Click() {}
void Hauptform::ReportButton_Click() {}

}  // namespace pescavo
