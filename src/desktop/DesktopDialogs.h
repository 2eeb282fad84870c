#pragma once

#include <string>

#include "model/Dialogs.h"

class QImage;
class QPrinter;
class QWidget;

namespace pescavo {

// What the windows ask of the desktop besides messages: the print dialog, the clipboard, the
// text editor and the help viewer. The program uses QtDialogs; tests script the answers.
class DesktopDialogs : public Dialogs {
 public:
  // The window that message boxes and the print dialog belong to.
  virtual void setParentWindow(QWidget* parent) = 0;
  // The print dialog for printer; false when the user cancels.
  virtual bool choosePrinter(QPrinter& printer) = 0;
  virtual void setClipboardText(const std::string& text) = 0;
  virtual std::string clipboardText() = 0;
  virtual void setClipboardImage(const QImage& image) = 0;
  // Opens a file with the desktop's handler for its type (the text editor for .txt, the help
  // viewer for .chm); false when nothing could open it.
  virtual bool openWithDesktop(const std::string& path) = 0;
  // The save dialog: the file chosen, proposed first, of the type filter ("CSV files (*.csv)");
  // empty when the user cancels.
  virtual std::string saveFileName(const std::string& proposed, const std::string& filter) = 0;
};

}  // namespace pescavo
