#include "generator/repeat_block.h"

#include <utility>

#include "base/file_system.h"
#include "base/status.h"
#include "base/text.h"
#include "generator/template_engine.h"

namespace kiekbord {
namespace {

bool Bevat(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

void NoteerBodyTag(HerhaalBlok& blok, int i, std::string_view line) {
  const std::string begin = TrimLeadingSpaces(Upper(line));
  if (StartsWith(begin, "<BODY")) blok.begin = i;
  if (StartsWith(begin, "</BODY")) blok.einde = i;
}

void NoteerMarkering(HerhaalBlok& blok, int i, std::string_view line) {
  switch (HerhaalMarkeringVan(line)) {
    case HerhaalMarkering::kBegin:
      blok.begin = i;
      break;
    case HerhaalMarkering::kEinde:
      blok.einde = i;
      break;
    case HerhaalMarkering::kGeen:
      break;
  }
}

}  // namespace

HerhaalMarkering HerhaalMarkeringVan(std::string_view line) {
  const std::string upper = Upper(line);
  const bool commentaar =
      StartsWith(TrimLeadingSpaces(upper), "<!--") && EndsWith(TrimSpaces(upper), "-->");
  if (!commentaar || !Bevat(upper, "HERHAAL") || !Bevat(upper, "KIEKBORD") || !Bevat(upper, "=")) {
    return HerhaalMarkering::kGeen;
  }
  if (Bevat(upper, "BEGIN")) return HerhaalMarkering::kBegin;
  if (Bevat(upper, "EINDE")) return HerhaalMarkering::kEinde;
  return HerhaalMarkering::kGeen;
}

HerhaalBlok BereidBlokSjabloonVoor(LineTable& sjabloon, PaginaRegels& regels) {
  HerhaalBlok blok;
  const int count = sjabloon.Count();
  for (int i = 1; i <= count; ++i) {
    NoteerBodyTag(blok, i, sjabloon.Line(i));
    regels.VerwerkRegel(sjabloon.Line(i));
  }
  // Markers are looked for after the body tags, so they override them.
  for (int i = 1; i <= count; ++i) NoteerMarkering(blok, i, sjabloon.Line(i));
  return blok;
}

void VulVelden(std::string& line, const std::vector<Veld>& velden, bool in_script) {
  if (line.find('[') == std::string::npos) return;
  for (const Veld& veld : velden) VervangVeld(line, veld.naam, veld.waarde, in_script);
}

BlokPagina::BlokPagina(const LineTable& sjabloon, HerhaalBlok blok)
    : sjabloon_(sjabloon), blok_(blok) {
  bool in_script = false;
  for (int i = 0; i <= sjabloon_.Count(); ++i) {
    script_bij_begin_.push_back(in_script);
    if (i > 0) in_script = ScriptOpenNa(sjabloon_.Line(i), in_script);
  }
}

void BlokPagina::SchrijfKop(const std::vector<Veld>& velden) {
  SchrijfRegels(1, blok_.begin, velden);
}

void BlokPagina::SchrijfBlok(const std::vector<Veld>& velden) {
  SchrijfRegels(EersteBlokRegel(), LaatsteBlokRegel(), velden);
}

void BlokPagina::SchrijfStaart(const std::vector<Veld>& velden) {
  SchrijfRegels(blok_.einde, sjabloon_.Count(), velden);
}

void BlokPagina::Voeg(std::string_view line) {
  tekst_ += line;
  tekst_ += "\r\n";
}

void BlokPagina::VervangNa(std::string_view plek, std::string_view waarde) {
  // Not Vervang: a whole page may well be longer than its texts.
  for (auto pos = tekst_.find(plek); pos != std::string::npos; pos = tekst_.find(plek, pos + waarde.size())) {
    tekst_.replace(pos, plek.size(), waarde);
  }
}

void BlokPagina::Bewaar(const std::string& path) const {
  const Status status = Fs().WriteFile(path, tekst_);
  if (!status.ok()) throw RunError(status);
}

void BlokPagina::SchrijfRegels(int van, int tot, const std::vector<Veld>& velden) {
  for (int i = van; i <= tot; ++i) {
    std::string line = sjabloon_.Line(i);
    VulVelden(line, velden, ScriptBijBegin(i));
    Voeg(line);
  }
}

}  // namespace kiekbord
