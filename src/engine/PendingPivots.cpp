#include "engine/PendingPivots.h"

#include <cstring>

namespace pescavo {

namespace {

constexpr int kLine = 8;  // cells per 64-byte line

typedef double Lanes __attribute__((vector_size(64), aligned(64), may_alias));

struct Operation {
  const double* pivot;  // nullptr for a turn
  int first, last, slot;
  double minusF, leaving;
};

// A row given its operations in order: a turn negates slots 0..n - 1, an update is
// x + (-f) * y over the pivot's lines and then sets the cell in the pivot's slot. A row is a
// few kilobytes, so it stays in the nearest cache from one operation to the next. One IEEE
// operation per lane whatever the vector width.
__attribute__((target_clones("avx512f", "avx2", "default"))) void sweep(double* cells, int n,
                                                                        const Operation* ops,
                                                                        int count) {
  for (int o = 0; o < count; ++o) {
    const Operation& op = ops[o];
    if (!op.pivot) {
      for (int k = 0; k < n; ++k) cells[k] = -cells[k];
      continue;
    }
    const Lanes f = {op.minusF, op.minusF, op.minusF, op.minusF,
                     op.minusF, op.minusF, op.minusF, op.minusF};
    for (int k = op.first; k < op.last; k += kLine) {
      Lanes* to = reinterpret_cast<Lanes*>(cells + k);
      *to = *to + f * *reinterpret_cast<const Lanes*>(op.pivot + k);
    }
    cells[op.slot] = op.minusF * op.leaving;
  }
}

}  // namespace

void PendingPivots::reset(int rows, int n, int stride, bool enabled) {
  m_enabled = enabled;
  m_n = n;
  m_stride = stride;
  m_pivots = 0;
  m_count.assign(static_cast<std::size_t>(rows) + 1, 0);
  m_rows.clear();
  if (!enabled) return;
  m_cells.resize(static_cast<std::size_t>(kDepth) * stride + 7);
  m_offset = (64 - reinterpret_cast<std::uintptr_t>(m_cells.data()) % 64) % 64 / sizeof(double);
  m_opPivot.resize((static_cast<std::size_t>(rows) + 1) * kOps);
  m_opFactor.resize((static_cast<std::size_t>(rows) + 1) * kOps);
}

int PendingPivots::addPivot(const double* pivot, int first, int last, int slot, double leaving) {
  const int number = m_pivots++;
  double* copy = &m_cells[m_offset + static_cast<std::size_t>(number) * m_stride];
  std::memcpy(copy + first, pivot + first, static_cast<std::size_t>(last - first) * sizeof(double));
  m_pivot[number] = {first, last, slot, leaving};
  return number;
}

void PendingPivots::addUpdate(int i, int pivot, double minusF) {
  std::uint8_t& count = m_count[static_cast<std::size_t>(i)];
  if (count == 0) m_rows.push_back(i);
  const std::size_t at = static_cast<std::size_t>(i) * kOps + count++;
  m_opPivot[at] = static_cast<std::int8_t>(pivot);
  m_opFactor[at] = minusF;
}

void PendingPivots::addTurn(int i) {
  std::uint8_t& count = m_count[static_cast<std::size_t>(i)];
  if (count == 0) m_rows.push_back(i);
  m_opPivot[static_cast<std::size_t>(i) * kOps + count++] = kTurn;
}

double PendingPivots::current(const double* cells, int i, int k) const {
  double value = cells[k];
  const std::size_t base = static_cast<std::size_t>(i) * kOps;
  for (int o = 0; o < m_count[static_cast<std::size_t>(i)]; ++o) {
    const int number = m_opPivot[base + o];
    if (number == kTurn) {
      value = -value;
      continue;
    }
    const Pivot& pivot = m_pivot[number];
    const double minusF = m_opFactor[base + o];
    if (k >= pivot.first && k < pivot.last) {
      const double y = m_cells[m_offset + static_cast<std::size_t>(number) * m_stride + k];
      value = value + minusF * y;
    }
    if (k == pivot.slot) value = minusF * pivot.leaving;
  }
  return value;
}

void PendingPivots::write(int i, double* cells) {
  std::uint8_t& count = m_count[static_cast<std::size_t>(i)];
  Operation ops[kOps];
  const std::size_t base = static_cast<std::size_t>(i) * kOps;
  for (int o = 0; o < count; ++o) {
    const int number = m_opPivot[base + o];
    if (number == kTurn) {
      ops[o] = {nullptr, 0, 0, 0, 0, 0};
      continue;
    }
    const Pivot& pivot = m_pivot[number];
    ops[o] = {&m_cells[m_offset + static_cast<std::size_t>(number) * m_stride],
              pivot.first,
              pivot.last,
              pivot.slot,
              m_opFactor[base + o],
              pivot.leaving};
  }
  sweep(cells, m_n, ops, count);
  count = 0;
}

void PendingPivots::clear() {
  m_rows.clear();
  m_pivots = 0;
}

}  // namespace pescavo
