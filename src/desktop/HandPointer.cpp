#include "desktop/HandPointer.h"

#include <QEvent>
#include <QFile>
#include <QImage>
#include <QPixmap>
#include <QWidget>
#include <utility>

namespace pescavo {

namespace {

constexpr int kDirectorySize = 6;  // reserved, type (2 for cursors), count
constexpr int kEntrySize = 16;     // the hot spot is at bytes 4 to 7 of an entry

int word(const QByteArray& bytes, int at) {
  return static_cast<unsigned char>(bytes[at]) | static_cast<unsigned char>(bytes[at + 1]) << 8;
}

class HandPointer : public QObject {
 public:
  HandPointer(QWidget* control, std::function<QString()> file,
              std::function<bool(bool)> when = nullptr)
      : QObject(control), m_file(std::move(file)), m_when(std::move(when)) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* control = static_cast<QWidget*>(watched);
    const QEvent::Type type = event->type();
    if (!m_when) {
      if (type == QEvent::Enter) setHand(control);
      return false;
    }
    if (type == QEvent::MouseButtonPress) m_clicked = true;
    if (type != QEvent::Enter && type != QEvent::MouseMove && type != QEvent::MouseButtonPress)
      return false;
    if (m_when(m_clicked))
      setHand(control);
    else
      control->unsetCursor();
    return false;
  }

 private:
  // The file is read each time, so a cursor file put in place later is taken up.
  void setHand(QWidget* control) {
    if (const std::optional<QCursor> cursor = loadCursorFile(m_file())) control->setCursor(*cursor);
  }

  std::function<QString()> m_file;
  std::function<bool(bool)> m_when;
  bool m_clicked = false;
};

}  // namespace

std::optional<QCursor> loadCursorFile(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  const QByteArray bytes = file.readAll();
  if (bytes.size() < kDirectorySize + kEntrySize || word(bytes, 0) != 0 || word(bytes, 2) != 2)
    return std::nullopt;
  const QImage image = QImage::fromData(bytes, "CUR");
  if (image.isNull()) return std::nullopt;
  const int x = word(bytes, kDirectorySize + 4);
  const int y = word(bytes, kDirectorySize + 6);
  return QCursor(QPixmap::fromImage(image), x, y);
}

void useHandPointer(QWidget* control, std::function<QString()> cursorFile) {
  control->installEventFilter(new HandPointer(control, std::move(cursorFile)));
}

void useHandPointerWhile(QWidget* control, std::function<QString()> cursorFile,
                         std::function<bool(bool clicked)> when) {
  control->setMouseTracking(true);
  control->installEventFilter(new HandPointer(control, std::move(cursorFile), std::move(when)));
}

}  // namespace pescavo
