#include "gallery/script_writer.h"

#include <string>
#include <string_view>
#include <vector>

#include "base/program_info.h"
#include "base/dutch_date.h"
#include "base/text.h"

namespace kiekbord {
namespace {

using namespace script_sleutel;

constexpr std::size_t kVasteRegels = 28;
constexpr std::size_t kRegelsPerFoto = 3;

// The script's lines in file order. Each key is written once and each
// section once, so appending gives the same lines as setting every key in
// turn would.
class ScriptRegels {
 public:
  explicit ScriptRegels(std::size_t verwacht) { regels_.reserve(verwacht); }

  void Sectie(std::string_view naam) { regels_.push_back("[" + std::string(naam) + "]"); }

  void Sleutel(std::string_view sleutel, std::string_view waarde) {
    regels_.push_back(std::string(sleutel) + "=" + EnkeleRegel(waarde));
  }

  void Getal(std::string_view sleutel, long long waarde) { Sleutel(sleutel, std::to_string(waarde)); }

  std::vector<std::string>& regels() { return regels_; }

 private:
  std::vector<std::string> regels_;
};

std::string Versie() { return std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor); }

void SchrijfKiekbord(ScriptRegels& uit, const std::chrono::year_month_day& aanmaakdatum) {
  uit.Sectie(kKiekbord);
  uit.Sleutel(kAanmaakdatum, NederlandseLangeDatum(aanmaakdatum));
  uit.Sleutel(kVersie, Versie());
  uit.Sleutel(kOpmerking, "Dit bestand niet handmatig aanpassen!");
}

void SchrijfAlgemeen(ScriptRegels& uit, const GalleryScript& script) {
  uit.Sectie(kAlgemeen);
  uit.Sleutel(kInvoerDir, script.invoer_dir);
  uit.Sleutel(kUitvoerDir, script.uitvoer_dir);
  uit.Sleutel(kTitel, script.titel);
  uit.Sleutel(kSubtitel, script.subtitel);
  uit.Sleutel(kDatum, script.datum);
  uit.Sleutel(kBeschrijving, BeschrijvingAlsWaarde(script.beschrijving));
  uit.Sleutel(kThumbnails, script.thumbnails ? "1" : "0");
  uit.Getal(kAantalFotos, static_cast<long long>(script.fotos.size()));
}

void SchrijfFotos(ScriptRegels& uit, const GalleryScript& script) {
  long long nummer = 0;
  for (const PhotoEntry& foto : script.fotos) {
    uit.Sectie(FotoSectie(++nummer));
    uit.Sleutel(kFoto, Lower(foto.foto));
    uit.Sleutel(kBijschrift, foto.bijschrift);
  }
}

void SchrijfInstellingen(ScriptRegels& uit, const GalleryScript& script) {
  uit.Sectie(kInstellingen);
  uit.Sleutel(kSjabloon, script.sjabloon);
  uit.Sleutel(kAantalFotosPerPagina, script.aantal_fotos_per_pagina);
  for (const KeuzeVeld& veld : kKeuzeVelden) uit.Getal(veld.sleutel, script.*veld.index);
  for (const KleurVeld& veld : kKleurVelden) uit.Getal(veld.sleutel, script.*veld.kleur);
  if (WebformaatSchrijven(script)) uit.Sleutel(kWebformaat, script.webformaat ? "1" : "0");
}

}  // namespace

std::size_t RegelsVoorScript(std::size_t aantal_fotos, bool met_webformaat) {
  return kVasteRegels + (met_webformaat ? 1 : 0) + kRegelsPerFoto * aantal_fotos;
}

Status ScriptSchrijven(const GalleryScript& script, const std::chrono::year_month_day& aanmaakdatum,
                       LineTable& tabel) {
  const std::size_t nodig = RegelsVoorScript(script.fotos.size(), WebformaatSchrijven(script));
  if (nodig > static_cast<std::size_t>(tabel.capacity())) {
    return Status::Error(fout::kSubscriptOutOfRange);
  }
  ScriptRegels uit(nodig);
  SchrijfKiekbord(uit, aanmaakdatum);
  SchrijfAlgemeen(uit, script);
  SchrijfFotos(uit, script);
  SchrijfInstellingen(uit, script);

  tabel.Clear();
  for (std::string& regel : uit.regels()) tabel.Append(std::move(regel));
  return Status::Ok();
}

}  // namespace kiekbord
