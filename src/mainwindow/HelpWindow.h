#pragma once

#include <QWidget>

#include "model/Guide.h"

class QLineEdit;
class QListWidget;
class QTextBrowser;
class QTreeWidget;

namespace pescavo {

// The user guide in a window of its own: the contents on the left, a search above them, the
// page on the right. Not modal, so the guide stays open beside the main window.
class HelpWindow : public QWidget {
  Q_OBJECT

 public:
  explicit HelpWindow(Guide guide, QWidget* parent = nullptr);

  // Shows a page of the guide, "page.html" or "page.html#section".
  void open(const QString& href);
  // Lists the pages that hold every word of the text; an empty text shows the contents again.
  void search(const QString& text);

  QTextBrowser* page() const { return m_page; }

  // Where the guide is looked for: beside the program (the build tree copies it there) and in
  // the data folder of an installed program.
  static QStringList guideFolders();

 private:
  QWidget* makeSidebar();
  void fillContents();

  Guide m_guide;
  QLineEdit* m_search = nullptr;
  QTreeWidget* m_contents = nullptr;
  QListWidget* m_results = nullptr;
  QTextBrowser* m_page = nullptr;
};

}  // namespace pescavo
