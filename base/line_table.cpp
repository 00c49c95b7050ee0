#include "base/line_table.h"

#include <algorithm>

#include "base/text.h"

namespace kiekbord {

LineTable::LineTable(int capacity) : slots_(static_cast<std::size_t>(std::max(capacity, 0)) + 1) {
  slots_[0] = "0";
}

int LineTable::Count() const {
  const double value = LeadingNumber(slots_[0]);
  if (!(value > 0)) return 0;
  return value >= capacity() ? capacity() : static_cast<int>(value);
}

void LineTable::SetCount(int count) { slots_[0] = std::to_string(count); }

bool LineTable::Append(std::string line) { return InsertAt(Count() + 1, std::move(line)); }

bool LineTable::InsertAt(int i, std::string line) {
  const int count = Count();
  if (count >= capacity() || i < 1 || i > count + 1) return false;
  for (int k = count; k >= i; --k) slots_[static_cast<std::size_t>(k + 1)] = std::move(slots_[static_cast<std::size_t>(k)]);
  slots_[static_cast<std::size_t>(i)] = std::move(line);
  SetCount(count + 1);
  return true;
}

void LineTable::Clear() {
  std::fill(slots_.begin(), slots_.end(), std::string());
  slots_[0] = "0";
}

}  // namespace kiekbord
