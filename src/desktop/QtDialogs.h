#pragma once

#include <QPointer>
#include <QWidget>

#include "desktop/DesktopDialogs.h"

namespace pescavo {

// Message boxes titled "Pescavo", the system print dialog, the system clipboard and the
// desktop's file handlers.
class QtDialogs : public DesktopDialogs {
 public:
  void information(const std::string& text) override;
  bool askYesNo(const std::string& text) override;
  void setParentWindow(QWidget* parent) override { m_parent = parent; }
  bool choosePrinter(QPrinter& printer) override;
  void setClipboardText(const std::string& text) override;
  std::string clipboardText() override;
  void setClipboardImage(const QImage& image) override;
  bool openWithDesktop(const std::string& path) override;
  std::string saveFileName(const std::string& proposed, const std::string& filter) override;

 private:
  QWidget* parent() const;
  QPointer<QWidget> m_parent;
};

}  // namespace pescavo
