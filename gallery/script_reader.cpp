#include "gallery/script_reader.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

#include "base/file_system.h"
#include "base/keyed_text_file.h"
#include "base/text.h"
#include "base/text_helpers.h"

namespace kiekbord {
namespace {

using namespace script_sleutel;

constexpr std::string_view kFotobijschriften = "Fotobijschriften";
constexpr std::string_view kOudeFotoSleutel = "Foto:*";
// Stands in for a missing "KleurTekstOpAchtergrond" or "Webformaat"; no
// value of either reads as it.
constexpr std::string_view kGeenKleur = "xxx";
constexpr std::string_view kRegeleinde = "\r\n";

// --- Messages --------------------------------------------------------------

Melding GeenFotosInUitvoerDir(const std::string& directory) {
  return {MeldingSoort::kInformatie, "Uitvoerdirectory " + directory + std::string(kRegeleinde) +
                                         "bevat (nog) geen fotobestanden (*.JPG)."};
}

Melding BijschriftenGaanVerloren() {
  return {MeldingSoort::kWaarschuwing, "De fotobijschriften die dit nu script bevat," +
                                           std::string(kRegeleinde) +
                                           "gaan verloren indien u dit script nogmaals opslaat."};
}

Melding FotosOntbreken(std::size_t vermeldingen, std::size_t gevonden) {
  return {MeldingSoort::kWaarschuwing,
          "Van de " + std::to_string(vermeldingen) + " foto's in het script zijn nog slechts " +
              std::to_string(gevonden) + std::string(kRegeleinde) +
              "fotobestanden aanwezig in de uitvoerdirectory." + std::string(kRegeleinde) +
              std::string(kRegeleinde) + "De ontbrekende foto's zijn verwijderd uit de kiekbord."};
}

Melding SjabloonOntbreekt(const std::string& naam, const std::string& sjablonen_dir) {
  return {MeldingSoort::kWaarschuwing,
          "Het gebruikte sjabloon '" + naam + "' is niet (meer) aanwezig" + std::string(kRegeleinde) +
              "onder directory " + sjablonen_dir + "." + std::string(kRegeleinde) +
              "Het eerste sjabloon zal worden gebruikt."};
}

// --- Values ----------------------------------------------------------------

std::string Algemeen(const LineTable& tabel, std::string_view sleutel, std::string_view standaard = "") {
  return LeesWaarde(tabel, kAlgemeen, sleutel, standaard);
}

std::string Instelling(const LineTable& tabel, std::string_view sleutel, std::string_view standaard) {
  return LeesWaarde(tabel, kInstellingen, sleutel, standaard);
}

// A list index: the value's leading number, rounded. A number no 16-bit
// index can hold is no choice at all (-1).
std::int16_t LijstIndex(std::string_view waarde) {
  const double getal = std::nearbyint(LeadingNumber(waarde));
  if (getal < std::numeric_limits<std::int16_t>::min() || getal > std::numeric_limits<std::int16_t>::max()) {
    return -1;
  }
  return static_cast<std::int16_t>(getal);
}

// A colour: a number is the colour number itself, any other text an HTML
// colour ("#FF0000"); `terugval` when it is neither.
std::int32_t Kleur(std::string_view waarde, std::int32_t terugval) {
  if (!IsNumber(waarde)) return HexNaarKleur(waarde, terugval);
  const double getal = std::nearbyint(LeadingNumber(waarde));
  if (!(getal >= std::numeric_limits<std::int32_t>::min() && getal <= std::numeric_limits<std::int32_t>::max())) {
    return terugval;
  }
  return static_cast<std::int32_t>(getal);
}

// A photo name must name a file of the output directory itself: a name with
// a directory part could point the photo edit commands at any file.
bool IsBestandsnaam(std::string_view naam) {
  return naam.find('/') == std::string_view::npos && naam.find('\0') == std::string_view::npos;
}

bool FotoBestaat(const std::string& uitvoer_dir, const std::string& naam) {
  return IsBestandsnaam(naam) && Fs().FileExists(WithTrailingSlash(uitvoer_dir) + naam);
}

bool BevatFotos(const std::string& directory) {
  std::vector<std::string> namen;
  return Fs().ListFiles(directory, "*.jpg", namen).ok() && !namen.empty();
}

// --- The directories -----------------------------------------------------------

void LeesMappen(const LineTable& tabel, const LeesOmgeving& omgeving, MapControle& mappen,
                ScriptGelezen& gelezen) {
  GalleryScript& script = gelezen.script;
  script.invoer_dir = Algemeen(tabel, kInvoerDir, omgeving.standaard_dir);
  mappen.ControleerInvoerDir(script.invoer_dir);

  script.uitvoer_dir = Algemeen(tabel, kUitvoerDir, omgeving.standaard_dir);
  if (!mappen.ControleerUitvoerDir(script.uitvoer_dir)) return;
  if (BevatFotos(script.uitvoer_dir)) {
    gelezen.fotos_laden = true;
    return;
  }
  gelezen.meldingen.push_back(GeenFotosInUitvoerDir(script.uitvoer_dir));
  mappen.HercontroleerInvoerDir();
}

// --- The texts -------------------------------------------------------------------

void LeesTeksten(const LineTable& tabel, GalleryScript& script) {
  script.titel = Algemeen(tabel, kTitel);
  script.subtitel = Algemeen(tabel, kSubtitel);
  script.datum = Algemeen(tabel, kDatum);
  script.beschrijving = WaardeAlsBeschrijving(Algemeen(tabel, kBeschrijving));
  script.thumbnails = LeadingNumber(Algemeen(tabel, kThumbnails, "0")) != 0;
}

// --- Photos of the current form ------------------------------------------------

// Current form: a name is taken when it has at least six characters and ends
// in exactly ".jpg"; a name typed as ".JPG" is not.
bool IsHuidigeFotonaam(const std::string& naam) { return CharCount(naam) >= 6 && EndsWith(naam, ".jpg"); }

bool HeeftBijschriftenHuidig(const LineTable& tabel, const std::vector<long long>& nummers) {
  return std::any_of(nummers.begin(), nummers.end(), [&](long long nummer) {
    return !LeesWaarde(tabel, FotoSectie(nummer), kBijschrift, "").empty();
  });
}

void LeesFotosHuidig(const LineTable& tabel, const std::vector<long long>& nummers, ScriptGelezen& gelezen) {
  for (const long long nummer : nummers) {
    const std::string sectie = FotoSectie(nummer);
    std::string naam = LeesWaarde(tabel, sectie, kFoto, "");
    if (!IsHuidigeFotonaam(naam)) continue;
    ++gelezen.vermeldingen;
    // Missing photos are dropped without a word in this form.
    if (!FotoBestaat(gelezen.script.uitvoer_dir, naam)) continue;
    gelezen.script.fotos.push_back({std::move(naam), LeesWaarde(tabel, sectie, kBijschrift, "")});
  }
}

// --- Photos of the older form ----------------------------------------------------

// Every "Foto:" line of "[Fotobijschriften]" as "<name>=<caption>", until a
// result shorter than six characters.
std::vector<std::string> OudeFotoRegels(const LineTable& tabel) {
  // The enumeration must start at the first line, whatever an earlier one
  // that stopped at a short result left in the program-wide cursor.
  ResetWildcardCursor();
  std::vector<std::string> regels;
  for (;;) {
    std::string regel = LeesWaarde(tabel, kFotobijschriften, kOudeFotoSleutel, "");
    if (CharCount(regel) < 6) break;
    regels.push_back(std::move(regel));
  }
  return regels;
}

// An older-form entry: the first "=" at the sixth character or later and
// right after a ".jpg" in any case. The name keeps its case.
std::optional<PhotoEntry> OudeVermelding(const std::string& regel) {
  const auto is = regel.find('=');
  const auto jpg = Lower(regel).find(".jpg=");
  if (is == std::string::npos || jpg == std::string::npos || is != jpg + 4) return std::nullopt;
  if (CharCount(std::string_view(regel).substr(0, is)) < 5) return std::nullopt;
  return PhotoEntry{regel.substr(0, is), regel.substr(is + 1)};
}

bool HeeftBijschriftenOud(const std::vector<std::string>& regels) {
  return std::any_of(regels.begin(), regels.end(), [](const std::string& regel) {
    const auto is = regel.find('=');
    return is != std::string::npos && is + 1 < regel.size();
  });
}

void LeesFotosOud(const std::vector<std::string>& regels, ScriptGelezen& gelezen) {
  for (const std::string& regel : regels) {
    std::optional<PhotoEntry> foto = OudeVermelding(regel);
    if (!foto) continue;
    ++gelezen.vermeldingen;
    if (FotoBestaat(gelezen.script.uitvoer_dir, foto->foto)) gelezen.script.fotos.push_back(std::move(*foto));
  }
  // Unlike the current form, the older form says when photos went missing.
  const std::size_t gevonden = gelezen.script.fotos.size();
  if (gelezen.vermeldingen > gevonden) gelezen.meldingen.push_back(FotosOntbreken(gelezen.vermeldingen, gevonden));
}

// --- The photos, in either form ---------------------------------------------------

void LeesFotos(const LineTable& tabel, ScriptGelezen& gelezen) {
  if (gelezen.ouder_formaat) {
    const std::vector<std::string> regels = OudeFotoRegels(tabel);
    if (gelezen.fotos_laden) {
      LeesFotosOud(regels, gelezen);
    } else if (HeeftBijschriftenOud(regels)) {
      gelezen.meldingen.push_back(BijschriftenGaanVerloren());
    }
    return;
  }
  const double n = std::nearbyint(LeadingNumber(Algemeen(tabel, kAantalFotos, "0")));
  const std::vector<long long> nummers = FotoSectieNummers(tabel, n);
  if (gelezen.fotos_laden) {
    LeesFotosHuidig(tabel, nummers, gelezen);
  } else if (HeeftBijschriftenHuidig(tabel, nummers)) {
    gelezen.meldingen.push_back(BijschriftenGaanVerloren());
  }
}

// --- The presentation ---------------------------------------------------------------

void LeesSjabloon(const LineTable& tabel, const LeesOmgeving& omgeving, ScriptGelezen& gelezen) {
  const std::string naam = Instelling(tabel, kSjabloon, "");
  std::string& sjabloon = gelezen.script.sjabloon;
  if (naam.empty()) {
    sjabloon = omgeving.huidig_sjabloon;
  } else if (std::find(omgeving.sjablonen.begin(), omgeving.sjablonen.end(), naam) != omgeving.sjablonen.end()) {
    sjabloon = naam;
  } else {
    gelezen.meldingen.push_back(SjabloonOntbreekt(naam, omgeving.sjablonen_dir));
    sjabloon = omgeving.sjablonen.empty() ? "" : omgeving.sjablonen.front();
  }
}

void LeesKeuzes(const LineTable& tabel, GalleryScript& script) {
  script.aantal_fotos_per_pagina = Instelling(tabel, kAantalFotosPerPagina, "1");
  for (const KeuzeVeld& veld : kKeuzeVelden) {
    script.*veld.index = LijstIndex(Instelling(tabel, veld.sleutel, std::to_string(veld.standaard)));
  }
}

// The text colour of older scripts is under "KleurTekst".
std::string TekstKleurWaarde(const LineTable& tabel) {
  std::string waarde = Instelling(tabel, kKleurVelden[0].sleutel, kGeenKleur);
  if (waarde == kGeenKleur) waarde = Instelling(tabel, "KleurTekst", "0");
  return waarde;
}

std::string KleurWaarde(const LineTable& tabel, const KleurVeld& veld) {
  if (veld.kleur == &GalleryScript::kleur_tekst_op_achtergrond) return TekstKleurWaarde(tabel);
  return Instelling(tabel, veld.sleutel, std::to_string(veld.standaard));
}

void LeesKleuren(const LineTable& tabel, GalleryScript& script) {
  for (const KleurVeld& veld : kKleurVelden) script.*veld.kleur = Kleur(KleurWaarde(tabel, veld), veld.terugval);
}

// On exactly when "1", as the generation run reads it.
void LeesWebformaat(const LineTable& tabel, GalleryScript& script) {
  const std::string waarde = Instelling(tabel, kWebformaat, kGeenKleur);
  script.webformaat_in_script = waarde != kGeenKleur;
  script.webformaat = waarde == "1";
}

}  // namespace

bool MappenZonderVenster::ControleerUitvoerDir(const std::string& directory) {
  return !directory.empty() && Fs().DirectoryExists(directory);
}

ScriptGelezen ScriptLezen(const LineTable& tabel, const LeesOmgeving& omgeving, MapControle& mappen) {
  ScriptGelezen gelezen;
  gelezen.ouder_formaat = LeesWaarde(tabel, kKiekbord, kVersie, "").empty();
  LeesMappen(tabel, omgeving, mappen, gelezen);
  LeesTeksten(tabel, gelezen.script);
  LeesFotos(tabel, gelezen);
  LeesSjabloon(tabel, omgeving, gelezen);
  LeesKeuzes(tabel, gelezen.script);
  LeesKleuren(tabel, gelezen.script);
  LeesWebformaat(tabel, gelezen.script);
  return gelezen;
}

std::string AantalFotosTekst(std::size_t aantal) { return std::to_string(aantal) + " foto('s)"; }

}  // namespace kiekbord
