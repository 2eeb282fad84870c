#include "model/AllOptionsLayout.h"
#include "support/ModelFixture.h"
#include "support/SameLayout.h"

namespace pescavo {
namespace {

using C = ControlId;

class AllOptionsTest : public ModelFixture {
 protected:
  void SetUp() override { table = readComponentTable(PESCAVO_SAMPLE_INPUT "/feedstuff.tab"); }
  // Shown on screen: a control in a hidden frame is not.
  bool shown(ControlId id) const {
    const std::optional<ControlId> frame = model.layout().at(id).parent;
    return model.visible(id) && (!frame || model.visible(*frame));
  }
  void runAll() {
    model.selection().alle_rein();
    model.Optimierung_Click();
    ASSERT_TRUE(model.visible(C::Ergebnis))
        << (dialogs.messages.empty() ? "" : dialogs.messages.back());
  }
};

constexpr ControlId kRevealed[] = {C::Frame1,    C::Option1,     C::Option2, C::Check2,
                                   C::Check1,    C::Check4,      C::Check5,  C::FischmehlCaption,
                                   C::Fischmehl, C::Optimierung2};

TEST_F(AllOptionsTest, OffLeavesEveryLayoutAsItWas) {
  RecordingDialogs otherDialogs;
  MainWindowModel plain(otherDialogs, '.');
  const auto same = [&](const char* when) {
    EXPECT_TRUE(sameLayout(model.layout(), plain.layout())) << when;
  };
  for (bool simple : {false, true}) {
    SCOPED_TRACE(simple ? "simple" : "full");
    load(simple);
    plain.load(table, species, fishmeal, simple);
    model.setAllOptions(true);
    if (simple) same("switched on in the simple layout");
    model.setAllOptions(false);
    same("switched off");
    model.substances().Add_Click();
    plain.substances().Add_Click();
    same("editing");
    model.substances().Abbrechen_Click();
    plain.substances().Abbrechen_Click();
    same("after editing");
  }
  // Start-up with the switch remembered off or switched off before loading.
  model.setAllOptions(true);
  model.setAllOptions(false);
  load();
  plain.load(table, species, fishmeal, false);
  same("loaded");
}

TEST_F(AllOptionsTest, OnShowsAndEnablesTheHiddenOptionsInTheFullLayoutOnly) {
  model.setAllOptions(true);  // remembered from the last start
  load();
  for (ControlId id : kRevealed)
    EXPECT_TRUE(model.visible(id) && model.enabled(id)) << controlName(id);
  // The hidden choosers follow the option buttons; the component editor's menu comes too.
  EXPECT_FALSE(model.visible(C::MinMax) || model.visible(C::Fischarten));
  EXPECT_TRUE(model.visible(C::MenuEdit));

  // While a substance is edited they give way to the grid, and come back after it.
  MainWindowLayout before = model.layout();
  model.substances().Add_Click();
  for (ControlId id : kRevealed) EXPECT_FALSE(shown(id)) << controlName(id);
  EXPECT_FALSE(model.visible(C::MenuEdit));
  model.substances().Abbrechen_Click();
  before.at(C::schadstoffwerte) = model.layout().at(C::schadstoffwerte);  // hidden, resized
  EXPECT_TRUE(sameLayout(model.layout(), before));

  load(true);
  for (ControlId id : {C::Frame1, C::Check2, C::Check1, C::Optimierung2, C::MenuEdit})
    EXPECT_FALSE(model.visible(id)) << controlName(id);
}

// The revealed controls withdraw a result like every option; switching off puts back what the
// user can no longer see, and withdraws the result only when that changes something. A single
// run takes the chosen fish-meal grade only with the switch; the sweep's "Details" runs and the
// simple layout keep the third grade, unless a grade is asked for.
TEST_F(AllOptionsTest, SwitchingOffRestoresTheHiddenOptionsAndOnlyItPassesTheGrade) {
  const auto gradeRun = [&](int chosen) {
    model.options().setFishmealGrade(chosen);
    runAll();
    return model.lastRun().options().fishmealGrade;
  };
  load();
  model.setAllOptions(true);
  runAll();
  model.setAllOptions(false);
  model.setAllOptions(true);
  EXPECT_TRUE(model.visible(C::Ergebnis));
  EXPECT_EQ(gradeRun(0), 0);

  model.options().setCriterionOption(Criterion::Minimum);
  model.options().setMrbdLimits(false);
  model.options().setPseudoComponents({true, false, false});
  EXPECT_EQ(gradeRun(1), 1);
  EXPECT_EQ(model.result().text.rfind("Minimum content", 0), 0u) << model.result().text;
  model.setAllOptions(false);
  EXPECT_FALSE(model.visible(C::Ergebnis));
  EXPECT_EQ(model.options().criterionOption(), Criterion::Maximum);
  EXPECT_TRUE(model.options().mrbdLimits());
  const PseudoComponents pseudo = model.options().pseudoComponents();
  EXPECT_TRUE(pseudo.pc && pseudo.cc && pseudo.f);
  EXPECT_EQ(model.options().fishmealGrade(), 2);
  EXPECT_EQ(gradeRun(0), 2);

  model.setAllOptions(true);
  model.options().setFishmealGrade(0);
  model.options().setAllScenariosMode(true);
  model.EinfacheOptimierung();
  EXPECT_EQ(model.lastRun().options().fishmealGrade, 2);
  load(true);
  EXPECT_EQ(gradeRun(3), 2);
  model.options().setKeepFishmealGrade(true);
  EXPECT_EQ(gradeRun(3), 3);
}

}  // namespace
}  // namespace pescavo
