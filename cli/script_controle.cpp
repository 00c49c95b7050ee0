#include "cli/script_controle.h"

#include <string_view>
#include <vector>

#include "app/startup_checks.h"
#include "base/keyed_text_file.h"
#include "base/line_table.h"
#include "gallery/script_reader.h"
#include "base/text.h"
#include "base/text_helpers.h"
#include "gallery/gallery_script.h"

namespace kiekbord {
namespace {

constexpr std::string_view kRegeleinde = "\r\n";

// Prints `tekst` after `label`; the lines after the first (CR LF or LF
// separated) are indented to stand under the first.
void PrintRegels(std::ostream& out, const std::string& label, std::string_view tekst) {
  const std::string inspringing(label.size(), ' ');
  out << label;
  for (std::size_t start = 0;;) {
    const auto einde = tekst.find('\n', start);
    std::string_view regel = tekst.substr(start, einde == std::string_view::npos ? einde : einde - start);
    if (!regel.empty() && regel.back() == '\r') regel.remove_suffix(1);
    if (start > 0 && !regel.empty()) out << inspringing;
    out << regel << '\n';
    if (einde == std::string_view::npos) break;
    start = einde + 1;
  }
}

std::string SoortNaam(MeldingSoort soort) {
  switch (soort) {
    case MeldingSoort::kInformatie: return "Informatie";
    case MeldingSoort::kVraag: return "Vraag";
    case MeldingSoort::kWaarschuwing: return "Waarschuwing";
    case MeldingSoort::kFout: return "Fout";
  }
  return "Melding";
}

void PrintMelding(std::ostream& out, const Melding& melding) {
  PrintRegels(out, "  " + SoortNaam(melding.soort) + ": ", melding.tekst);
}

std::string KeuzeTekst(const KeuzeVeld& veld, std::int16_t index) {
  if (index < 0) return std::to_string(index) + " (geen keuze)";
  if (static_cast<std::size_t>(index) >= veld.keuzes.size()) return std::to_string(index) + " (buiten de lijst)";
  return std::to_string(index) + " (" + std::string(veld.keuzes[static_cast<std::size_t>(index)]) + ")";
}

std::string KleurTekst(std::int32_t kleur) {
  return std::to_string(kleur) + " (#" + KleurNaarHex(std::to_string(kleur)) + ")";
}

void PrintFotos(std::ostream& out, const ScriptGelezen& gelezen) {
  const std::vector<PhotoEntry>& fotos = gelezen.script.fotos;
  if (!gelezen.fotos_laden) {
    out << "Foto's: niet geladen (uitvoerdirectory ongeldig of zonder foto's)\n";
    return;
  }
  if (fotos.empty()) {
    out << "Foto's: geen";
  } else {
    out << "Foto's: " << AantalFotosTekst(fotos.size());
  }
  if (gelezen.vermeldingen != fotos.size()) out << " (" << gelezen.vermeldingen << " in het script)";
  out << '\n';
  for (std::size_t i = 0; i < fotos.size(); ++i) {
    out << "  " << i + 1 << ". " << fotos[i].foto << ':';
    if (!fotos[i].bijschrift.empty()) out << ' ' << fotos[i].bijschrift;
    out << '\n';
  }
}

// The output directory as the generation run takes it, which is where the
// site goes: the window fills in a directory for a script without one, the
// run refuses such a script, and so does it a directory that is no full path.
std::string UitvoerDirTekst(const LineTable& tabel) {
  const std::string uitvoer = LeesWaarde(tabel, script_sleutel::kAlgemeen, script_sleutel::kUitvoerDir, "");
  if (uitvoer.empty()) return "(geen; de generatie weigert dit script)";
  if (!StartsWith(uitvoer, "/")) return uitvoer + " (geen volledig pad; de generatie weigert dit script)";
  return uitvoer;
}

void PrintRecord(std::ostream& out, const ScriptGelezen& gelezen, const LineTable& tabel) {
  const GalleryScript& script = gelezen.script;
  out << "Vorm: " << (gelezen.ouder_formaat ? "ouder (zonder Versie)" : "huidig") << '\n';
  out << "InvoerDir: " << script.invoer_dir << '\n';
  out << "UitvoerDir: " << UitvoerDirTekst(tabel) << '\n';
  out << "Titel: " << script.titel << '\n';
  out << "Subtitel: " << script.subtitel << '\n';
  out << "Datum: " << script.datum << '\n';
  PrintRegels(out, "Beschrijving: ", script.beschrijving);
  out << "Thumbnails: " << (script.thumbnails ? "ja" : "nee") << '\n';
  PrintFotos(out, gelezen);
  out << "Sjabloon: " << script.sjabloon << '\n';
  out << "AantalFotosPerPagina: " << script.aantal_fotos_per_pagina << '\n';
  for (const KeuzeVeld& veld : kKeuzeVelden) {
    out << veld.sleutel << ": " << KeuzeTekst(veld, script.*veld.index) << '\n';
  }
  for (const KleurVeld& veld : kKleurVelden) out << veld.sleutel << ": " << KleurTekst(script.*veld.kleur) << '\n';
}

void PrintMeldingen(std::ostream& out, const std::vector<Melding>& meldingen) {
  if (meldingen.empty()) {
    out << "Meldingen: geen\n";
    return;
  }
  out << "Meldingen:\n";
  for (const Melding& melding : meldingen) PrintMelding(out, melding);
}

// True when the file has more non-empty lines than the script's table holds;
// the window then reads only the first ones.
bool TeLang(const std::string& pad) {
  LineTable proef(capaciteit::kScript + 1);
  return LeesRegels(pad, proef, false).ok() && proef.Count() > capaciteit::kScript;
}

}  // namespace

int ControleerScript(const std::string& pad, const ProgramSettings& settings, std::ostream& out) {
  out << "Script: " << pad << '\n';
  LineTable tabel(capaciteit::kScript);
  if (!LeesRegels(pad, tabel, false).ok()) {
    // The window's open routine shows the error text without its "%".
    PrintMeldingen(out, {{MeldingSoort::kWaarschuwing,
                          "Fout bij openen " + pad + std::string(kRegeleinde) + tabel.CountSlot().substr(1)}});
    return 1;
  }
  LeesOmgeving omgeving;
  omgeving.standaard_dir = settings.default_dir;
  omgeving.sjablonen = SjabloonSets(settings.sjabloon_dir);
  omgeving.sjablonen_dir = settings.sjabloon_dir;
  omgeving.huidig_sjabloon = omgeving.sjablonen.empty() ? "" : omgeving.sjablonen.front();
  MappenZonderVenster mappen;
  const ScriptGelezen gelezen = ScriptLezen(tabel, omgeving, mappen);

  PrintRecord(out, gelezen, tabel);
  PrintMeldingen(out, gelezen.meldingen);
  if (TeLang(pad)) {
    out << "Let op: het script heeft meer dan " << capaciteit::kScript << " regels; alleen de eerste "
        << capaciteit::kScript << " zijn gelezen.\n";
  }
  return 0;
}

}  // namespace kiekbord
