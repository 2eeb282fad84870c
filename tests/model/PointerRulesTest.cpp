#include <gtest/gtest.h>

#include "model/PointerRules.h"

namespace pescavo {
namespace {

TEST(PointerRules, ButtonsAlwaysListsWhileFilledTheGridOnItsEditableColumnsDropDownsOnceClicked) {
  using C = ControlId;
  using R = HandPointerRule;
  EXPECT_EQ(handPointerRule(C::Optimierung), R::Always);
  EXPECT_EQ(handPointerRule(C::Image3), R::Always);
  EXPECT_EQ(handPointerRule(C::Image2), R::Never);  // its picture carries the hand
  EXPECT_EQ(handPointerRule(C::Label1), R::Never);
  EXPECT_EQ(handPointerRule(C::Check4), R::Never);
  EXPECT_EQ(handPointerRule(C::Fischfutter2), R::WhileFilled);
  EXPECT_EQ(handPointerRule(C::schadstoffwerte), R::OnEditableColumn);
  EXPECT_EQ(handPointerRule(C::Fischmehl), R::AfterClick);

  EXPECT_FALSE(showsHandPointer(R::WhileFilled, 0, -1, false));
  EXPECT_TRUE(showsHandPointer(R::WhileFilled, 1, -1, false));
  for (int column = 0; column <= 5; ++column)
    EXPECT_EQ(showsHandPointer(R::OnEditableColumn, 0, column, false), column >= 4) << column;
  EXPECT_FALSE(showsHandPointer(R::AfterClick, 3, 5, false));
  EXPECT_TRUE(showsHandPointer(R::AfterClick, 0, 0, true));
  EXPECT_FALSE(showsHandPointer(R::Never, 1, 5, true));
}

}  // namespace
}  // namespace pescavo
