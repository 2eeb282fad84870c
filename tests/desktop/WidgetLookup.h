#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

namespace pescavo {

// A window's control by its object name; a missing one fails the test that asked for it.
template <typename T = QWidget>
T* child(QWidget& window, const char* name) {
  T* found = window.findChild<T*>(name);
  EXPECT_NE(found, nullptr) << name;
  return found;
}

inline void click(QWidget& window, const char* name) {
  if (auto* button = child<QPushButton>(window, name)) QTest::mouseClick(button, Qt::LeftButton);
}

// A move event wherever the pointer was before; QTest's sends none when it is there already.
inline void moveTo(QWidget* control, QPoint at) {
  QMouseEvent move(QEvent::MouseMove, at, control->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                   Qt::NoModifier);
  QCoreApplication::sendEvent(control, &move);
}

// The mouse comes in and moves over the control; true when it then shows the file's pointer.
inline bool handOver(QWidget* control) {
  QEvent enter(QEvent::Enter);
  QCoreApplication::sendEvent(control, &enter);
  moveTo(control, {4, 4});
  return control->testAttribute(Qt::WA_SetCursor) && control->cursor().shape() == Qt::BitmapCursor;
}

// Runs body on the modal window open() shows, then closes it unless body did; a failed check in
// body still lets the window go.
inline void whileModal(const std::function<void()>& open,
                       const std::function<void(QWidget&)>& body) {
  bool ran = false;
  QTimer::singleShot(0, [&] {
    QWidget* modal = QApplication::activeModalWidget();
    ran = modal != nullptr;
    if (modal) body(*modal);
    if ((modal = QApplication::activeModalWidget())) modal->close();
  });
  open();
  EXPECT_TRUE(ran) << "no modal window";
}

}  // namespace pescavo
