#pragma once

#include <QRect>

namespace pescavo {

// The main window's design is in twips; Qt places in device-independent pixels, so the
// window looks as designed at any display scaling.
constexpr int kTwipsPerPixel = 15;

// Rounded half away from zero: an editor scrolled above the grid has a negative place.
constexpr int twipsToPixels(int twips) {
  return twips >= 0 ? (twips + kTwipsPerPixel / 2) / kTwipsPerPixel
                    : -((-twips + kTwipsPerPixel / 2) / kTwipsPerPixel);
}

inline QRect rectFromTwips(int left, int top, int width, int height) {
  return QRect(twipsToPixels(left), twipsToPixels(top), twipsToPixels(width),
               twipsToPixels(height));
}

}  // namespace pescavo
