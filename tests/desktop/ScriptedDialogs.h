#pragma once

#include <QImage>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "desktop/DesktopDialogs.h"

namespace pescavo {

// Answers the windows' questions from a script and records what they showed, so that GUI tests
// can drive the real widgets without a person at the screen.
class ScriptedDialogs : public DesktopDialogs {
 public:
  void information(const std::string& text) override {
    messages.push_back(text);
    if (onMessage) onMessage(text);
  }
  bool askYesNo(const std::string& text) override;  // the next scripted answer; none left: fail
  void setParentWindow(QWidget*) override {}
  // Prints into printPdf when set; no file set means the user cancelled the dialog.
  bool choosePrinter(QPrinter& printer) override;
  void setClipboardText(const std::string& text) override { clipboard = text; }
  std::string clipboardText() override { return clipboard; }
  void setClipboardImage(const QImage& image) override { clipboardImage = image; }
  bool openWithDesktop(const std::string& path) override {
    opened.push_back(path);
    return openSucceeds;
  }
  // The next scripted file name; none left: cancelled.
  std::string saveFileName(const std::string& proposed, const std::string& filter) override;

  std::deque<bool> answers;
  std::vector<std::string> messages;                  // information texts in the order shown
  std::vector<std::string> questions;                 // Yes/No questions in the order asked
  std::function<void(const std::string&)> onMessage;  // runs while the message is open
  std::string printPdf;
  int printDialogs = 0;
  std::string clipboard;
  QImage clipboardImage;
  std::vector<std::string> opened;
  bool openSucceeds = true;  // false: no program of the desktop could open the file
  std::deque<std::string> saveNames;
  std::vector<std::string> proposedNames;  // what each save dialog proposed
};

}  // namespace pescavo
