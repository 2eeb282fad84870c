#include "desktop/Styles.h"

namespace pescavo {

namespace {

QString rgb(const Rgb& colour) {
  return QStringLiteral("rgb(%1, %2, %3)").arg(colour.red).arg(colour.green).arg(colour.blue);
}

}  // namespace

QColor qcolor(const Rgb& colour) { return QColor(colour.red, colour.green, colour.blue); }

QString styleSheet(const TextStyle& style) {
  QString sheet;
  if (style.background) sheet += "background-color: " + rgb(*style.background) + "; ";
  sheet += "color: " + rgb(style.text) + ";";
  if (style.bold) sheet += " font-weight: bold;";
  if (style.border)
    sheet +=
        QStringLiteral(" border: %1px solid ").arg(style.borderWidth) + rgb(*style.border) + ";";
  return sheet;
}

}  // namespace pescavo
