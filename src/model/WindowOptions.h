#pragma once

#include "model/RunOptions.h"

namespace pescavo {

// The main window's option buttons (Option1 to Option4), its check boxes and the hidden
// choosers a run is set from (MinMax, Fischarten, Fischmehl). Every change is counted, so that
// a result shown can tell whether it still belongs to the options.
class WindowOptions {
 public:
  Criterion criterionOption() const { return m_criterionOption; }
  Species speciesOption() const { return m_speciesOption; }
  PseudoComponents pseudoComponents() const { return m_run.pseudo; }
  bool mrbdLimits() const { return m_run.mrbd; }
  void setCriterionOption(Criterion criterion) { change(m_criterionOption, criterion); }
  void setSpeciesOption(Species species) { change(m_speciesOption, species); }
  void setPseudoComponents(PseudoComponents pseudo) { change(m_run.pseudo, pseudo); }
  void setMrbdLimits(bool on) { change(m_run.mrbd, on); }

  Criterion criterion() const { return m_run.criterion; }
  int species() const { return m_run.species; }
  int fishmealGrade() const { return m_run.fishmealGrade; }
  void setCriterion(Criterion criterion) { change(m_run.criterion, criterion); }
  void setSpecies(int position) { change(m_run.species, position); }
  void setFishmealGrade(int position) { change(m_run.fishmealGrade, position); }

  // What a run made now would take.
  const RunOptions& run() const { return m_run; }
  void setRun(const RunOptions& run) { change(m_run, run); }
  // The single run's first step: criterion and species follow the option buttons, PC is the
  // third fish-meal grade.
  void followOptionButtons();
  // Counts every change, also one to the value already set.
  int changes() const { return m_changes; }

  // How a single run is made, not what it takes, so neither counts as a change: it takes the
  // fish-meal grade set instead of the third; it is one of the sweep's and shows no result.
  bool keepFishmealGrade() const { return m_keepFishmealGrade; }
  void setKeepFishmealGrade(bool keep) { m_keepFishmealGrade = keep; }
  bool allScenariosMode() const { return m_allScenariosMode; }
  void setAllScenariosMode(bool on) { m_allScenariosMode = on; }

 private:
  template <typename T>
  void change(T& option, T value) {
    option = value;
    ++m_changes;
  }

  Criterion m_criterionOption = Criterion::Maximum;
  Species m_speciesOption = Species::CommonCarp;
  RunOptions m_run;
  int m_changes = 0;
  bool m_keepFishmealGrade = false;
  bool m_allScenariosMode = false;
};

}  // namespace pescavo
