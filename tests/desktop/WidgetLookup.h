#pragma once

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>
#include <QWidget>

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

}  // namespace pescavo
