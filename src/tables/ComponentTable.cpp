#include "tables/ComponentTable.h"

#include <stdexcept>
#include <utility>

namespace pescavo {

namespace {

std::string atMostSubstances() {
  return "the table holds at most " + std::to_string(ComponentTable::kMaxSubstances) +
         " substances";
}

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

std::size_t ComponentTable::at(int s, int i) const {
  checkPosition(s, m_substances.size(), "substance");
  checkPosition(i, m_components.size(), "component");
  return static_cast<std::size_t>(i - 1) * m_substances.size() + static_cast<std::size_t>(s - 1);
}

double ComponentTable::residue(int s, int i) const { return m_residues[at(s, i)]; }

std::int16_t ComponentTable::basis(int s, int i) const { return m_basis[at(s, i)]; }

void ComponentTable::setSubstanceName(int s, std::string name) {
  checkPosition(s, m_substances.size(), "substance");
  m_substances[static_cast<std::size_t>(s - 1)] = std::move(name);
}

void ComponentTable::setResidue(int s, int i, double value) { m_residues[at(s, i)] = value; }

void ComponentTable::setBasis(int s, int i, std::int16_t code) { m_basis[at(s, i)] = code; }

namespace {

// The rows of values re-laid for a changed number of substances (columns).
template <typename Value>
std::vector<Value> relaid(const std::vector<Value>& values, std::size_t rows, std::size_t columns,
                          int from, bool erase) {
  const std::size_t source = static_cast<std::size_t>(from);  // only read when from >= 0
  std::vector<Value> out;
  out.reserve(rows * (erase ? columns - 1 : columns + 1));
  for (std::size_t row = 0; row < rows; ++row) {
    const auto first = values.begin() + static_cast<std::ptrdiff_t>(row * columns);
    if (erase) {
      out.insert(out.end(), first, first + static_cast<std::ptrdiff_t>(source));
      out.insert(out.end(), first + static_cast<std::ptrdiff_t>(source + 1),
                 first + static_cast<std::ptrdiff_t>(columns));
    } else {
      out.insert(out.end(), first, first + static_cast<std::ptrdiff_t>(columns));
      out.push_back(from >= 0 ? first[static_cast<std::ptrdiff_t>(source)] : Value{});
    }
  }
  return out;
}

}  // namespace

void ComponentTable::rebuildColumns(int from, bool erase) {
  const std::size_t columns = m_substances.size();
  m_residues = relaid(m_residues, m_components.size(), columns, from, erase);
  m_basis = relaid(m_basis, m_components.size(), columns, from, erase);
}

int ComponentTable::addSubstance(std::string name) {
  if (substanceCount() >= kMaxSubstances) {
    throw std::length_error(atMostSubstances());
  }
  rebuildColumns(-1, false);
  m_substances.push_back(std::move(name));
  return substanceCount();
}

int ComponentTable::copySubstance(int s, std::string name) {
  checkPosition(s, m_substances.size(), "substance");
  if (substanceCount() >= kMaxSubstances) {
    throw std::length_error(atMostSubstances());
  }
  rebuildColumns(s - 1, false);
  m_substances.push_back(std::move(name));
  return substanceCount();
}

void ComponentTable::deleteSubstance(int s) {
  checkPosition(s, m_substances.size(), "substance");
  if (m_substances.size() == 1) {
    throw std::logic_error("the table must keep at least one substance");
  }
  rebuildColumns(s - 1, true);
  m_substances.erase(m_substances.begin() + (s - 1));
}

int ComponentTable::addComponent(FeedComponent component) {
  if (componentCount() >= kMaxComponents) {
    throw std::length_error("the table holds at most " + std::to_string(kMaxComponents) +
                            " components");
  }
  m_components.push_back(std::move(component));
  m_residues.resize(m_residues.size() + m_substances.size(), 0.0);
  m_basis.resize(m_basis.size() + m_substances.size(), std::int16_t{0});
  return componentCount();
}

void ComponentTable::deleteComponent(int i) {
  checkPosition(i, m_components.size(), "component");
  const auto row = static_cast<std::ptrdiff_t>(i - 1);
  const auto columns = static_cast<std::ptrdiff_t>(m_substances.size());
  m_components.erase(m_components.begin() + row);
  m_residues.erase(m_residues.begin() + row * columns, m_residues.begin() + (row + 1) * columns);
  m_basis.erase(m_basis.begin() + row * columns, m_basis.begin() + (row + 1) * columns);
}

}  // namespace pescavo
