#include "tables/ComponentTable.h"

#include <stdexcept>
#include <utility>

namespace pescavo {

namespace {

void checkPosition(int position, std::size_t count, const char* what) {
  if (position < 1 || static_cast<std::size_t>(position) > count) {
    throw std::out_of_range(std::string(what) + " " + std::to_string(position) +
                            " is not in the table");
  }
}

}  // namespace

int ComponentTable::componentCount() const { return static_cast<int>(m_components.size()); }

int ComponentTable::substanceCount() const { return static_cast<int>(m_substances.size()); }

const FeedComponent& ComponentTable::component(int i) const {
  checkPosition(i, m_components.size(), "component");
  return m_components[static_cast<std::size_t>(i - 1)];
}

FeedComponent& ComponentTable::component(int i) {
  checkPosition(i, m_components.size(), "component");
  return m_components[static_cast<std::size_t>(i - 1)];
}

const std::string& ComponentTable::substanceName(int s) const {
  checkPosition(s, m_substances.size(), "substance");
  return m_substances[static_cast<std::size_t>(s - 1)];
}

double ComponentTable::residue(int s, int i) const {
  checkPosition(s, m_substances.size(), "substance");
  checkPosition(i, m_components.size(), "component");
  return m_residues[static_cast<std::size_t>(s - 1)][static_cast<std::size_t>(i - 1)];
}

std::int16_t ComponentTable::basis(int s, int i) const {
  checkPosition(s, m_substances.size(), "substance");
  checkPosition(i, m_components.size(), "component");
  return m_basis[static_cast<std::size_t>(s - 1)][static_cast<std::size_t>(i - 1)];
}

void ComponentTable::setSubstanceName(int s, std::string name) {
  checkPosition(s, m_substances.size(), "substance");
  m_substances[static_cast<std::size_t>(s - 1)] = std::move(name);
}

void ComponentTable::setResidue(int s, int i, double value) {
  checkPosition(s, m_substances.size(), "substance");
  checkPosition(i, m_components.size(), "component");
  m_residues[static_cast<std::size_t>(s - 1)][static_cast<std::size_t>(i - 1)] = value;
}

void ComponentTable::setBasis(int s, int i, std::int16_t code) {
  checkPosition(s, m_substances.size(), "substance");
  checkPosition(i, m_components.size(), "component");
  m_basis[static_cast<std::size_t>(s - 1)][static_cast<std::size_t>(i - 1)] = code;
}

int ComponentTable::addSubstance(std::string name) {
  if (substanceCount() >= kMaxSubstances) {
    throw std::length_error("the table holds at most 998 substances");
  }
  m_substances.push_back(std::move(name));
  m_residues.emplace_back(m_components.size(), 0.0);
  m_basis.emplace_back(m_components.size(), std::int16_t{0});
  return substanceCount();
}

int ComponentTable::copySubstance(int s, std::string name) {
  checkPosition(s, m_substances.size(), "substance");
  if (substanceCount() >= kMaxSubstances) {
    throw std::length_error("the table holds at most 998 substances");
  }
  const auto source = static_cast<std::size_t>(s - 1);
  m_substances.push_back(std::move(name));
  m_residues.push_back(m_residues[source]);
  m_basis.push_back(m_basis[source]);
  return substanceCount();
}

void ComponentTable::deleteSubstance(int s) {
  checkPosition(s, m_substances.size(), "substance");
  if (m_substances.size() == 1) {
    throw std::logic_error("the table must keep at least one substance");
  }
  const auto offset = static_cast<std::ptrdiff_t>(s - 1);
  m_substances.erase(m_substances.begin() + offset);
  m_residues.erase(m_residues.begin() + offset);
  m_basis.erase(m_basis.begin() + offset);
}

int ComponentTable::addComponent(FeedComponent component) {
  if (componentCount() >= kMaxComponents) {
    throw std::length_error("the table holds at most 1000 components");
  }
  m_components.push_back(std::move(component));
  for (auto& values : m_residues) values.push_back(0.0);
  for (auto& codes : m_basis) codes.push_back(0);
  return componentCount();
}

void ComponentTable::deleteComponent(int i) {
  checkPosition(i, m_components.size(), "component");
  const auto offset = static_cast<std::ptrdiff_t>(i - 1);
  m_components.erase(m_components.begin() + offset);
  for (auto& values : m_residues) values.erase(values.begin() + offset);
  for (auto& codes : m_basis) codes.erase(codes.begin() + offset);
}

}  // namespace pescavo
