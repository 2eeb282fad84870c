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

TEST(PointerRules, ComponentWindowsShowTheHandOnTheirOwnButtonsAndTheCategoryChooserOnceClicked) {
  using W = ComponentWindow;
  using R = HandPointerRule;
  for (const char* button : {"Abbrechen", "Command1", "Command2", "Fertig", "go2", "Loeschen",
                             "Neuer_Datensatz", "PrintButton"})
    EXPECT_EQ(handPointerRule(W::Komponentenliste, button), R::Always) << button;
  EXPECT_EQ(handPointerRule(W::Komponentenliste, "KategorieCombo"), R::AfterClick);
  for (const char* other : {"Kompomenteneigenschaften", "EingabeText", "Suche2", "Go3", ""})
    EXPECT_EQ(handPointerRule(W::Komponentenliste, other), R::Never) << other;

  for (const char* button : {"Command2", "Fertig", "Go3", "PrintButton"})
    EXPECT_EQ(handPointerRule(W::Futterkomponenten, button), R::Always) << button;
  // The overview has no such drop-down, and its "Go" is named otherwise than the editor's.
  for (const char* other : {"Command1", "go2", "KategorieCombo", "SchadstoffCombo", "Suche3"})
    EXPECT_EQ(handPointerRule(W::Futterkomponenten, other), R::Never) << other;
}

}  // namespace
}  // namespace pescavo
