// The in-memory form of every keyed text file and template.
//
// A line table has a fixed capacity (its highest index). Slot 0 holds the
// number of lines as decimal text, or, after a failed read or write, an error
// text beginning with "%" ("%Error 53 File not found"); slots 1..count hold
// the lines without line ends.
#pragma once

#include <string>
#include <vector>

namespace kiekbord {

namespace capaciteit {
inline constexpr int kScript = 1024;
inline constexpr int kTemplate = 512;
inline constexpr int kIni = 64;
inline constexpr int kThumbnailList = 999;
}  // namespace capaciteit

class LineTable {
 public:
  explicit LineTable(int capacity);

  // The highest index a line can have.
  int capacity() const { return static_cast<int>(slots_.size()) - 1; }

  // The number of lines in use: the count slot's leading number (0 when it
  // holds none, as after a failure), at most the capacity.
  int Count() const;
  void SetCount(int count);

  const std::string& CountSlot() const { return slots_[0]; }
  void SetCountSlot(std::string text) { slots_[0] = std::move(text); }

  // True after a failed read or write.
  bool Failed() const { return !slots_[0].empty() && slots_[0][0] == '%'; }

  // Line i, 1 <= i <= capacity().
  const std::string& Line(int i) const { return slots_.at(static_cast<std::size_t>(i)); }
  std::string& Line(int i) { return slots_.at(static_cast<std::size_t>(i)); }

  // Appends a line after the last one; false when the table is full.
  bool Append(std::string line);

  // Makes room for one line at index i (1 <= i <= Count() + 1) by moving
  // lines i..Count() down a slot; false when the table is full.
  bool InsertAt(int i, std::string line);

  // Empties the table: count "0", every slot cleared.
  void Clear();

 private:
  std::vector<std::string> slots_;
};

}  // namespace kiekbord
