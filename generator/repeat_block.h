// Pages with a repeat block: the overview page and the photo pages.
//
// Their templates mark a block of lines that is written once per photo
// ("HERHAAL"). A begin marker is a comment line such as
// "<!-- HERHAAL KIEKBORD = BEGIN -->", an end marker the same with "EINDE";
// case, spacing and the order of the words inside are free. Without markers
// the "<BODY" and "</BODY" lines bound the block, so the whole body repeats.
// The last candidate of each kind wins, and a marker wins over a body tag.
//
// A page is then written in three parts: the head (lines 1 to the begin
// line), any number of passes over the block (the lines strictly between
// begin and end) and the tail (the end line to the last line). Without any
// end line the tail starts at entry 0 of the template table, its count slot,
// so such a page begins with the template's line count: intended, it is how
// these pages always came out.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/line_table.h"
#include "generator/page_lines.h"

namespace kiekbord {

// The lines around the block; 0 where the template has none.
struct HerhaalBlok {
  int begin = 0;
  int einde = 0;
};

enum class HerhaalMarkering { kGeen, kBegin, kEinde };

// Whether `line` is a begin marker, an end marker or neither. A line that
// holds both "BEGIN" and "EINDE" is a begin marker.
HerhaalMarkering HerhaalMarkeringVan(std::string_view line);

// Treats every template line with `regels` (head block, common fields) and
// returns the block bounds: the body tags as the lines were read, then the
// markers of the treated lines.
HerhaalBlok BereidBlokSjabloonVoor(LineTable& sjabloon, PaginaRegels& regels);

// Fills `velden` in order into `line` when it holds "["; a line without
// "[" stays as it is. `in_script`: the line begins inside a <script> block.
// Throws RunError(6) as VervangVeld does.
void VulVelden(std::string& line, const std::vector<Veld>& velden, bool in_script = false);

// One page being assembled from a prepared template and its block.
class BlokPagina {
 public:
  BlokPagina(const LineTable& sjabloon, HerhaalBlok blok);

  // Lines 1 to the begin line, filled with `velden`.
  void SchrijfKop(const std::vector<Veld>& velden);
  // One pass over the block lines, every line filled with `velden`.
  void SchrijfBlok(const std::vector<Veld>& velden);
  // The end line to the last line, filled with `velden`.
  void SchrijfStaart(const std::vector<Veld>& velden);

  // The block lines, for a writer that fills them line by line itself.
  int EersteBlokRegel() const { return blok_.begin + 1; }
  int LaatsteBlokRegel() const { return blok_.einde - 1; }
  const std::string& Regel(int i) const { return sjabloon_.Line(i); }
  // Whether template line i begins inside a <script> block.
  bool ScriptBijBegin(int i) const { return script_bij_begin_[static_cast<std::size_t>(i)]; }
  void Voeg(std::string_view line);
  // Every `plek` in the page so far becomes `waarde`: for values longer than
  // a page line may be.
  void VervangNa(std::string_view plek, std::string_view waarde);

  // Writes the page to `path` in one step. Throws RunError with the file
  // system's error when it cannot be written (an earlier page then stays).
  void Bewaar(const std::string& path) const;

 private:
  void SchrijfRegels(int van, int tot, const std::vector<Veld>& velden);

  const LineTable& sjabloon_;
  HerhaalBlok blok_;
  std::vector<bool> script_bij_begin_;  // per template line, from entry 0
  std::string tekst_;
};

}  // namespace kiekbord
