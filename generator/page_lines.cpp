#include "generator/page_lines.h"

#include <cmath>
#include <new>
#include <utility>

#include "base/keyed_text_file.h"
#include "base/text.h"
#include "base/generation_log.h"
#include "base/text_helpers.h"
#include "generator/template_engine.h"

namespace kiekbord {
namespace {

// True when `line` begins with `prefix` (ASCII), compared without regard to
// case.
bool BegintMet(std::string_view line, std::string_view prefix) {
  if (line.size() < prefix.size()) return false;
  for (std::size_t i = 0; i < prefix.size(); ++i) {
    const auto a = static_cast<unsigned char>(line[i]);
    const auto b = static_cast<unsigned char>(prefix[i]);
    const auto upper = [](unsigned char c) { return c >= 'a' && c <= 'z' ? c - 0x20 : c; };
    if (upper(a) != upper(b)) return false;
  }
  return true;
}

bool IsCreditPlek(std::string_view line) {
  return BegintMet(line, "<!--LINKICON-->") || BegintMet(line, "</BODY>");
}

}  // namespace

KleurVelden KleurVeldenVan(const SiteGegevens& gegevens) {
  return {gegevens.kleur_tekst_op_achtergrond, gegevens.kleur_achtergrond,
          gegevens.kleur_tekst_in_kader, gegevens.kleur_kader};
}

void VulKleurVelden(std::string& line, const KleurVelden& kleuren) {
  VervangVeld(line, "KLEURTEKSTOPACHTERGROND", kleuren.tekst_op_achtergrond);
  VervangVeld(line, "KLEURACHTERGROND", kleuren.achtergrond);
  VervangVeld(line, "KLEURTEKSTINKADER", kleuren.tekst_in_kader);
  VervangVeld(line, "KLEURKADER", kleuren.kader);
  VervangVeld(line, "KLEURTEKST", kleuren.tekst_op_achtergrond);
}

PaginaVelden PaginaVeldenVan(const SiteGegevens& gegevens) {
  PaginaVelden velden;
  velden.aantal_fotos = std::to_string(gegevens.AantalFotos());
  velden.titel = gegevens.titel;
  velden.subtitel = gegevens.subtitel;
  velden.datum = gegevens.datum;
  velden.beschrijving = gegevens.beschrijving;
  velden.kleuren = KleurVeldenVan(gegevens);
  velden.positie_fotos = PositieTekst(gegevens.positie_fotos);
  return velden;
}

std::string SubtitelOfTitel(const SiteGegevens& gegevens) {
  return TrimSpaces(gegevens.subtitel).empty() ? gegevens.titel : gegevens.subtitel;
}

int StukNummer(std::string_view index) {
  const double stuk = std::nearbyint(LeadingNumber(index) + 1);
  if (!(stuk >= -32768 && stuk <= 32767)) throw RunError(fout::kOverflow);
  return static_cast<int>(stuk);
}

std::string PositieTekst(std::string_view positie_fotos) {
  return Deel(StukNummer(positie_fotos), ";", "left;center;right");
}

void VulPaginaVelden(std::string& line, const PaginaVelden& velden, bool in_script) {
  VervangVeld(line, "AANTALFOTOS", velden.aantal_fotos);
  VervangVeld(line, "TITEL", velden.titel, in_script);
  VervangVeld(line, "SUBTITEL", velden.subtitel, in_script);
  if (velden.lege_subtitel_als_commentaar) {
    line = Vervang(line, "<h2></h2>", "<!-- Geen subtitel -->");
  }
  VervangVeld(line, "DATUM", velden.datum, in_script);
  if (velden.beschrijving) VervangVeld(line, "BESCHRIJVING", *velden.beschrijving, in_script);
  VulKleurVelden(line, velden.kleuren);
  for (const Veld& veld : velden.eigen_velden) VervangVeld(line, veld.naam, veld.waarde);
  VervangVeld(line, "POSITIEFOTOS", velden.positie_fotos);
}

PaginaRegels::PaginaRegels(KopEnCredit kop, PaginaVelden velden, std::string kop_eerste,
                           std::string kop_tweede)
    : kop_(std::move(kop)),
      velden_(std::move(velden)),
      kop_eerste_(std::move(kop_eerste)),
      kop_tweede_(std::move(kop_tweede)) {}

void PaginaRegels::MetCreditRegel(std::string uitvoer_dir, std::string uitlijning) {
  credit_te_plaatsen_ = true;
  uitvoer_dir_ = std::move(uitvoer_dir);
  uitlijning_ = std::move(uitlijning);
}

void PaginaRegels::VerwerkRegel(std::string& line) {
  // The tag is looked for before the head block goes in front of it.
  if (BegintMet(line, "</HEAD>")) ZetKopblokVoor(line, kop_eerste_, kop_tweede_, kop_);
  const bool in_script = in_script_;
  in_script_ = ScriptOpenNa(line, in_script_);
  if (line.find('[') != std::string::npos) VulPaginaVelden(line, velden_, in_script);
  if (credit_te_plaatsen_ && IsCreditPlek(line)) {
    ZetCreditRegelVoor(line, uitvoer_dir_, uitlijning_, kop_);
    credit_te_plaatsen_ = false;
  }
}

void PaginaRegels::VerwerkAlle(LineTable& table) {
  const int count = table.Count();
  for (int i = 1; i <= count; ++i) VerwerkRegel(table.Line(i));
}

bool LeesSjabloonGelogd(const std::string& path, LineTable& table, SiteRun& run,
                        SjabloonLezer lees) {
  run.log.SchrijfLog("Inlezen sjabloon " + path + "...");
  if (!lees(path, table, run.gegevens.WebformaatAan()).ok()) {
    run.log.SchrijfLog("Fout bij inlezen sjabloon: " + table.CountSlot());
    run.failed = kMislukt;
    return false;
  }
  run.log.SchrijfLog("Sjabloon " + path + " ingelezen.");
  return true;
}

bool SchrijfPaginaGelogd(const std::string& path, LineTable& table,
                         const PaginaMeldingen& meldingen, SiteRun& run) {
  run.log.SchrijfLog(std::string(meldingen.aanmaken) + path + "...");
  if (!SchrijfRegels(path, table).ok()) {
    run.log.SchrijfLog(std::string(meldingen.fout) + table.CountSlot());
    run.failed = kMislukt;
    return false;
  }
  if (!meldingen.aangemaakt.empty()) {
    run.log.SchrijfLog(std::string(meldingen.aangemaakt) + path + " aangemaakt.");
  }
  return true;
}

void BinnenStapgrens(SiteRun& run, const std::function<void()>& stap) {
  Status probleem;
  try {
    stap();
    return;
  } catch (...) {
    probleem = StatusVanUitzondering();
  }
  // Logged outside the handlers: a log that cannot be written throws on to
  // the run, which then ends without an end line.
  run.failed = kMislukt;
  run.log.SchrijfLog(std::to_string(probleem.number()) + " " + probleem.description());
}

}  // namespace kiekbord
