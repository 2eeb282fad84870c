#pragma once

#include <QColor>
#include <QString>

#include "model/CheckStyles.h"

namespace pescavo {

// The core's plain style values in the toolkit's terms.
QColor qcolor(const Rgb& colour);
QString styleSheet(const TextStyle& style);

}  // namespace pescavo
