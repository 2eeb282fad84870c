#pragma once

#include <QDialog>
#include <QString>
#include <functional>

class QTextEdit;

namespace pescavo {

// The small information window ("Fish Species" as designed) that the information images fill.
class Dialog : public QDialog {
  Q_OBJECT

 public:
  // cursorFile names the hand pointer's file for "OK"; none: the usual pointer.
  explicit Dialog(QWidget* parent = nullptr, std::function<QString()> cursorFile = {});
  // Caption and text, read-only; shown without blocking, one window for every image.
  void showText(const QString& caption, const QString& text);

 private:
  QTextEdit* m_info;
};

}  // namespace pescavo
