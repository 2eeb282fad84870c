#include "mainwindow/HelpWindow.h"

#include <QCoreApplication>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSplitter>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>
#include <vector>

namespace pescavo {

namespace {

constexpr int kHrefRole = Qt::UserRole;
constexpr int kMarkRole = Qt::UserRole + 1;

QPushButton* navigationButton(const QString& caption, QWidget* parent) {
  auto* button = new QPushButton(caption, parent);
  button->setAccessibleName(caption);
  return button;
}

}  // namespace

HelpWindow::HelpWindow(Guide guide, QWidget* parent)
    : QWidget(parent, Qt::Window), m_guide(std::move(guide)) {
  setObjectName("HelpWindow");
  setWindowTitle("Pescavo Help");
  setAccessibleName("Pescavo Help");
  m_page = new QTextBrowser(this);
  m_page->setObjectName("GuidePage");
  m_page->setAccessibleName("Guide page");
  m_page->setSearchPaths({QString::fromStdString(m_guide.folder())});
  m_page->setOpenExternalLinks(true);

  auto* back = navigationButton("Back", this);
  auto* forward = navigationButton("Forward", this);
  auto* home = navigationButton("Contents", this);
  back->setEnabled(false);
  forward->setEnabled(false);
  connect(back, &QPushButton::clicked, m_page, &QTextBrowser::backward);
  connect(forward, &QPushButton::clicked, m_page, &QTextBrowser::forward);
  connect(home, &QPushButton::clicked, this, [this] { open("index.html"); });
  connect(m_page, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
  connect(m_page, &QTextBrowser::forwardAvailable, forward, &QPushButton::setEnabled);

  auto* navigation = new QHBoxLayout;
  navigation->addWidget(back);
  navigation->addWidget(forward);
  navigation->addWidget(home);
  navigation->addStretch();
  auto* right = new QWidget(this);
  auto* rightLayout = new QVBoxLayout(right);
  rightLayout->setContentsMargins(0, 0, 0, 0);
  rightLayout->addLayout(navigation);
  rightLayout->addWidget(m_page, 1);

  auto* splitter = new QSplitter(this);
  splitter->addWidget(makeSidebar());
  splitter->addWidget(right);
  splitter->setStretchFactor(1, 1);
  splitter->setSizes({260, 640});
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(splitter);
  resize(940, 680);
  fillContents();
  open("index.html");
  m_search->setFocus();  // typing searches at once; the contents and the page are a click away
}

QWidget* HelpWindow::makeSidebar() {
  auto* sidebar = new QWidget(this);
  m_search = new QLineEdit(sidebar);
  m_search->setObjectName("GuideSearch");
  m_search->setAccessibleName("Search the guide");
  m_search->setPlaceholderText("Search...");
  m_search->setClearButtonEnabled(true);
  m_contents = new QTreeWidget(sidebar);
  m_contents->setObjectName("GuideContents");
  m_contents->setAccessibleName("Contents");
  m_contents->setHeaderHidden(true);
  m_results = new QListWidget(sidebar);
  m_results->setObjectName("GuideResults");
  m_results->setAccessibleName("Search results");
  m_results->setWordWrap(true);
  m_results->hide();
  auto* layout = new QVBoxLayout(sidebar);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(m_search);
  layout->addWidget(m_contents, 1);
  layout->addWidget(m_results, 1);

  connect(m_search, &QLineEdit::returnPressed, this, [this] { search(m_search->text()); });
  connect(m_search, &QLineEdit::textChanged, this, [this](const QString& text) {
    if (text.trimmed().isEmpty()) search(QString());
  });
  connect(m_contents, &QTreeWidget::itemActivated, this,
          [this](QTreeWidgetItem* item) { open(item->data(0, kHrefRole).toString()); });
  connect(m_contents, &QTreeWidget::itemClicked, this,
          [this](QTreeWidgetItem* item) { open(item->data(0, kHrefRole).toString()); });
  connect(m_results, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) {
    open(item->data(kHrefRole).toString());
    m_page->moveCursor(QTextCursor::Start);
    m_page->find(item->data(kMarkRole).toString());
  });
  connect(m_results, &QListWidget::itemClicked, m_results, &QListWidget::itemActivated);
  return sidebar;
}

void HelpWindow::fillContents() {
  std::vector<QTreeWidgetItem*> parents;
  for (const Guide::Entry& entry : m_guide.contents()) {
    const int level = std::min<int>(entry.level, static_cast<int>(parents.size()));
    parents.resize(level);
    auto* item =
        parents.empty() ? new QTreeWidgetItem(m_contents) : new QTreeWidgetItem(parents.back());
    item->setText(0, QString::fromStdString(entry.title));
    item->setData(0, kHrefRole, QString::fromStdString(entry.href));
    parents.push_back(item);
  }
  m_contents->expandToDepth(0);
}

void HelpWindow::open(const QString& href) {
  if (href.isEmpty()) return;  // "Nothing found." leads nowhere
  if (m_guide.empty()) {
    m_page->setPlainText("The user guide was not found. It is installed with the program in " +
                         guideFolders().join(" or ") + ".");
    return;
  }
  m_page->setSource(QUrl(href));
}

void HelpWindow::search(const QString& text) {
  const bool searching = !text.trimmed().isEmpty();
  m_contents->setVisible(!searching);
  m_results->setVisible(searching);
  m_results->clear();
  if (!searching) return;
  const std::vector<Guide::Hit> hits = m_guide.search(text.toStdString());
  for (const Guide::Hit& hit : hits) {
    auto* item = new QListWidgetItem(QString::fromStdString(hit.title + "\n" + hit.snippet));
    item->setData(kHrefRole, QString::fromStdString(hit.file));
    item->setData(kMarkRole, QString::fromStdString(hit.mark));
    m_results->addItem(item);
  }
  if (hits.empty()) m_results->addItem("Nothing found.");
}

QStringList HelpWindow::guideFolders() {
  const QDir program(QCoreApplication::applicationDirPath());
  return {program.filePath("guide"), QDir::cleanPath(program.filePath("../share/pescavo/guide"))};
}

}  // namespace pescavo
