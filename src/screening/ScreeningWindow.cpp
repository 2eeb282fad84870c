#include "screening/ScreeningWindow.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include "desktop/DesktopDialogs.h"
#include "desktop/HandPointer.h"
#include "desktop/PrintGrid.h"
#include "model/RunOptions.h"
#include "model/ScreeningView.h"
#include "screening/ScreeningPrint.h"
#include "screening/ScreeningTable.h"
#include "tables/TableError.h"
#include "tables/TextFile.h"

namespace pescavo {

namespace {

// Page margins in millimetres, as the other grids print.
constexpr float kLeft = 10, kTop = 15, kRight = 10, kBottom = 10;
// Often enough for a smooth bar, seldom enough to leave the workers alone.
constexpr int kPollMilliseconds = 50;
// A refusal in the burden column would take the window's width: its tooltip holds it whole.
constexpr int kWidestColumn = 180;

}  // namespace

ScreeningWindow::ScreeningWindow(const ComponentTable& table, std::vector<FishSpecies> species,
                                 std::vector<FishMealGrade> fishmeal, char decimalSeparator,
                                 const ScreeningRequest& request, DesktopDialogs& dialogs,
                                 std::string folder, QWidget* parent,
                                 std::function<QString()> cursorFile)
    : QWidget(parent, Qt::Window),
      m_table(table),
      m_species(std::move(species)),
      m_fishmeal(std::move(fishmeal)),
      m_screening(m_table, m_species, m_fishmeal, decimalSeparator),
      m_base(request.base),
      m_dialogs(dialogs),
      m_folder(std::move(folder)),
      m_cursorFile(std::move(cursorFile)) {
  setObjectName("Screening");
  setWindowTitle(kScreeningCaption);
  setAccessibleName(kScreeningCaption);
  buildControls(request);
  m_poll = new QTimer(this);
  m_poll->setInterval(kPollMilliseconds);
  connect(m_poll, &QTimer::timeout, this, &ScreeningWindow::showProgress);
  showRunning(false);
  resize(1100, 640);
}

ScreeningWindow::~ScreeningWindow() { stopAndJoin(); }

QPushButton* ScreeningWindow::makeButton(const char* name, const char* caption) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setAccessibleName(QString(caption).remove('&'));
  button->setAutoDefault(false);
  if (m_cursorFile) useHandPointer(button, m_cursorFile);
  return button;
}

void ScreeningWindow::buildControls(const ScreeningRequest& request) {
  auto* speciesLabel = new QLabel("Species:", this);
  speciesLabel->setAccessibleName("Species:");
  m_speciesChoice = new QComboBox(this);
  m_speciesChoice->setObjectName("SpeciesChoice");
  m_speciesChoice->setAccessibleName("Species");
  for (const FishSpecies& fish : m_species)
    m_speciesChoice->addItem(QString::fromStdString(fish.name));
  m_speciesChoice->addItem(kScreeningBothSpecies);
  const bool both = request.species.size() > 1 || request.species.empty();
  m_speciesChoice->setCurrentIndex(both ? m_speciesChoice->count() - 1 : request.species[0]);
  speciesLabel->setBuddy(m_speciesChoice);
  auto* criterionLabel = new QLabel("Criterion:", this);
  criterionLabel->setAccessibleName("Criterion:");
  m_criterionChoice = new QComboBox(this);
  m_criterionChoice->setObjectName("CriterionChoice");
  m_criterionChoice->setAccessibleName("Criterion");
  for (const char* item : kMinMaxItems) m_criterionChoice->addItem(item);
  const bool minimum = !request.criteria.empty() && request.criteria[0] == Criterion::Minimum;
  m_criterionChoice->setCurrentIndex(minimum ? 1 : 0);
  criterionLabel->setBuddy(m_criterionChoice);
  m_scenarios = new QCheckBox(kScreeningScenarios, this);
  m_scenarios->setObjectName("Scenarios");
  m_scenarios->setAccessibleName(kScreeningScenarios);
  m_scenarios->setChecked(request.scenarios);
  m_start = makeButton("Start", kScreeningStart);

  m_rows = new ScreeningTable(m_species, this);
  m_view = new QTableView(this);
  m_view->setObjectName("ScreeningGrid");
  m_view->setAccessibleName("Screening table");
  m_view->setModel(m_rows);
  m_view->setSortingEnabled(true);
  m_view->horizontalHeader()->setSortIndicatorShown(true);
  m_view->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
  m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
  m_view->verticalHeader()->hide();
  m_view->verticalHeader()->setDefaultSectionSize(m_view->fontMetrics().height() + 6);
  m_view->horizontalHeader()->setStretchLastSection(true);

  m_progress = new QProgressBar(this);
  m_progress->setObjectName("Progress");
  m_progress->setAccessibleName("Progress");
  m_status = new QLabel(this);
  m_status->setObjectName("Status");
  m_status->setAccessibleName("Status");
  m_cancelButton = makeButton("Cancel", kScreeningCancel);
  m_copy = makeButton("Copy", kScreeningCopy);
  m_print = makeButton("Print", kScreeningPrint);
  m_save = makeButton("Save", kScreeningSave);

  auto* choices = new QHBoxLayout;
  choices->addWidget(speciesLabel);
  choices->addWidget(m_speciesChoice);
  choices->addSpacing(12);
  choices->addWidget(criterionLabel);
  choices->addWidget(m_criterionChoice);
  choices->addSpacing(12);
  choices->addWidget(m_scenarios);
  choices->addStretch();
  choices->addWidget(m_start);
  auto* progress = new QHBoxLayout;
  progress->addWidget(m_progress, 1);
  progress->addWidget(m_status, 1);
  progress->addWidget(m_cancelButton);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(m_copy);
  buttons->addWidget(m_print);
  buttons->addWidget(m_save);
  buttons->addStretch();
  auto* page = new QVBoxLayout(this);
  page->addLayout(choices);
  page->addWidget(m_view, 1);
  page->addLayout(progress);
  page->addLayout(buttons);

  connect(m_start, &QPushButton::clicked, this, &ScreeningWindow::start);
  connect(m_cancelButton, &QPushButton::clicked, this, &ScreeningWindow::cancel);
  connect(m_copy, &QPushButton::clicked, this, &ScreeningWindow::copy_Click);
  connect(m_print, &QPushButton::clicked, this, &ScreeningWindow::print_Click);
  connect(m_save, &QPushButton::clicked, this, &ScreeningWindow::save_Click);
  connect(m_view, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
    if (index.isValid() && onRunChosen) onRunChosen(m_rows->shownRow(index.row()));
  });
}

ScreeningRequest ScreeningWindow::chosenRequest() const {
  ScreeningRequest request;
  request.base = m_base;
  const int species = m_speciesChoice->currentIndex();
  if (species == m_speciesChoice->count() - 1) {
    request.species.clear();
    for (int s = 0; s < static_cast<int>(m_species.size()); ++s) request.species.push_back(s);
  } else {
    request.species = {species};
  }
  request.criteria = {m_criterionChoice->currentIndex() == 1 ? Criterion::Minimum
                                                             : Criterion::Maximum};
  request.scenarios = m_scenarios->isChecked();
  return request;
}

void ScreeningWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (m_started) return;
  m_started = true;
  // After the first paint, so that the window is there before the work begins.
  QTimer::singleShot(0, this, &ScreeningWindow::start);
}

void ScreeningWindow::start() {
  if (running()) return;
  m_started = true;
  const ScreeningRequest request = chosenRequest();
  m_total = m_screening.runCount(request);
  m_done = 0;
  m_cancel = false;
  m_cancelled = false;
  // The old rows go: they answered other choices. The headings are those of the new rows.
  showRows({}, request.scenarios);
  showRunning(true);
  showProgress();
  m_worker = std::thread([this, request] {
    auto result = std::make_shared<ScreeningResult>(m_screening.run(
        request, [this](int done, int) { m_done = done; }, m_cancel));
    QMetaObject::invokeMethod(
        this,
        [this, result, scenarios = request.scenarios] { done(std::move(*result), scenarios); },
        Qt::QueuedConnection);
  });
}

void ScreeningWindow::cancel() {
  m_cancel = true;
  m_cancelled = running();
}

void ScreeningWindow::showProgress() {
  m_progress->setMaximum(std::max(m_total, 1));
  m_progress->setValue(std::min<int>(m_done, m_total));
  m_status->setText(QString::fromStdString(
      screeningStatus(m_done, m_total, running() && !m_cancel, m_cancelled)));
}

void ScreeningWindow::showRunning(bool on) {
  for (QWidget* idle : std::initializer_list<QWidget*>{m_start, m_speciesChoice, m_criterionChoice,
                                                       m_scenarios, m_copy, m_print, m_save})
    idle->setEnabled(!on);
  m_cancelButton->setEnabled(on);
  if (on)
    m_poll->start();
  else
    m_poll->stop();
}

void ScreeningWindow::done(ScreeningResult result, bool scenarios) {
  if (m_worker.joinable()) m_worker.join();
  m_done = static_cast<int>(result.rows.size());
  m_cancelled = result.cancelled;
  showRows(std::move(result.rows), scenarios);
  showRunning(false);
  showProgress();
  emit finished();
}

void ScreeningWindow::showRows(std::vector<ScreeningRow> rows, bool scenarios) {
  m_view->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  m_rows->setRows(std::move(rows), scenarios);
  m_view->resizeColumnsToContents();
  for (int c = 0; c < m_rows->columnCount(); ++c)
    m_view->setColumnWidth(c, std::min(m_view->columnWidth(c), kWidestColumn));
}

void ScreeningWindow::stopAndJoin() {
  m_cancel = true;
  if (m_worker.joinable()) m_worker.join();
}

void ScreeningWindow::closeEvent(QCloseEvent* event) {
  stopAndJoin();
  QWidget::closeEvent(event);
}

void ScreeningWindow::copy_Click() {
  m_dialogs.setClipboardText(screeningText(m_rows->rows(), m_rows->order(), m_rows->scenarios(),
                                           m_species, ScreeningFormat::Tsv));
}

void ScreeningWindow::print_Click() {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  if (!m_dialogs.choosePrinter(printer)) return;
  PrintGrid(printer, screeningPrintTable(*m_rows, *m_view, printableWidth(printer, kLeft, kRight)),
            kLeft, kTop, kRight, kBottom, kScreeningPrintTitle, QString(), 0);
}

void ScreeningWindow::save_Click() {
  const std::string path =
      m_dialogs.saveFileName(m_folder + "/" + kScreeningFileName, kScreeningFileFilter);
  if (path.empty()) return;
  try {
    writeFileAtomic(path, screeningText(m_rows->rows(), m_rows->order(), m_rows->scenarios(),
                                        m_species, ScreeningFormat::Csv));
  } catch (const TableError& error) {
    m_dialogs.information(error.what());
  }
}

}  // namespace pescavo
