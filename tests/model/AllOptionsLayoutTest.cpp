#include "model/AllOptionsLayout.h"
#include "support/ModelFixture.h"
#include "support/SameLayout.h"

namespace pescavo {
namespace {

using C = ControlId;

class AllOptionsTest : public ModelFixture {
 protected:
  void SetUp() override { table = readComponentTable(PESCAVO_SAMPLE_INPUT "/feedstuff.tab"); }
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

// Remembered on from the last start, the full layout shows and enables the hidden options. Off,
// the layout is as the switch never existed.
TEST_F(AllOptionsTest, OnRevealsTheHiddenOptionsAndOffPutsTheLayoutBack) {
  RecordingDialogs otherDialogs;
  MainWindowModel plain(otherDialogs, '.');
  const auto same = [&](const char* when) {
    EXPECT_TRUE(sameLayout(model.layout(), plain.layout())) << when;
  };
  model.setAllOptions(true);
  load();
  plain.load(table, species, fishmeal, false);
  for (ControlId id : kRevealed)
    EXPECT_TRUE(model.visible(id) && model.enabled(id)) << controlName(id);
  model.setAllOptions(false);
  same("switched off");
  for (MainWindowModel* m : {&model, &plain}) {
    m->substances().Add_Click();
    m->substances().Abbrechen_Click();
  }
  same("after editing");
  load();
  plain.load(table, species, fishmeal, false);
  same("loaded");
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
  model.setAllOptions(true);
  EXPECT_FALSE(model.visible(C::Frame1));  // the simple layout shows no more options
  EXPECT_EQ(gradeRun(3), 2);
  model.options().setKeepFishmealGrade(true);
  EXPECT_EQ(gradeRun(3), 3);
}

}  // namespace
}  // namespace pescavo
