// The gallery record and how its fields map onto the script file.
//
// `GalleryScript` holds everything the user enters in the wizard; the script
// file (".kbs") is its stored form. This header also holds, as data, the
// lists of choices of the presentation fields in list order (the window fills
// its lists from them), the key table's defaults, and the value encodings
// shared by the script writer and reader.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/line_table.h"

namespace kiekbord {

// One photo of the gallery.
struct PhotoEntry {
  std::string foto;        // file name in the output directory, lower case, ending in ".jpg"
  std::string bijschrift;  // one line; empty when the photo has none

  bool operator==(const PhotoEntry&) const = default;
};

// The gallery record. A default record carries the values a script without
// any keys reads as, directories aside (those default to the user's home
// directory, which only the caller knows).
struct GalleryScript {
  std::string invoer_dir;
  std::string uitvoer_dir;
  std::string titel;
  std::string subtitel;
  std::string datum;
  std::string beschrijving;  // lines separated by CR LF
  bool thumbnails = false;
  std::vector<PhotoEntry> fotos;  // in page order

  std::string sjabloon;                        // template set name
  std::string aantal_fotos_per_pagina = "1";   // the field's text
  // Indexes into the lists of choices below; -1 when nothing is chosen.
  std::int16_t presentatie = 0;
  std::int16_t positie_fotos = 0;
  std::int16_t positie_bijschriften = 0;
  std::int16_t fotos_zonder_bijschrift = 0;
  std::int16_t lettertype_titels = 0;
  std::int16_t lettertype_bijschriften = 0;
  std::int16_t lettergrootte_bijschriften = 2;
  std::int16_t letterstijl_bijschriften = 0;
  // Colour numbers: red in the lowest byte, then green, then blue.
  std::int32_t kleur_tekst_op_achtergrond = 0;
  std::int32_t kleur_achtergrond = 16777215;
  std::int32_t kleur_tekst_in_kader = 16777215;
  std::int32_t kleur_kader = 13421772;
  // Web-sized copies of the photos and the page fields that use them.
  bool webformaat = false;
  // The script read had the "Webformaat" key. A script without it that has
  // the setting off is written without it too, so it keeps its bytes.
  bool webformaat_in_script = false;

  bool operator==(const GalleryScript&) const = default;
};

// The script's sections and keys. The reader, the writer and the generation
// run all name them through these constants and the two tables below.
namespace script_sleutel {
inline constexpr std::string_view kKiekbord = "Kiekbord";
inline constexpr std::string_view kAlgemeen = "Algemeen";
inline constexpr std::string_view kInstellingen = "Instellingen";
inline constexpr std::string_view kAanmaakdatum = "Aanmaakdatum";
inline constexpr std::string_view kVersie = "Versie";
inline constexpr std::string_view kOpmerking = "Opmerking";
inline constexpr std::string_view kInvoerDir = "InvoerDir";
inline constexpr std::string_view kUitvoerDir = "UitvoerDir";
inline constexpr std::string_view kTitel = "Titel";
inline constexpr std::string_view kSubtitel = "Subtitel";
inline constexpr std::string_view kDatum = "Datum";
inline constexpr std::string_view kBeschrijving = "Beschrijving";
inline constexpr std::string_view kThumbnails = "Thumbnails";
inline constexpr std::string_view kAantalFotos = "AantalFotos";
inline constexpr std::string_view kFoto = "Foto";
inline constexpr std::string_view kBijschrift = "Bijschrift";
inline constexpr std::string_view kSjabloon = "Sjabloon";
inline constexpr std::string_view kAantalFotosPerPagina = "AantalFotosPerPagina";
inline constexpr std::string_view kWebformaat = "Webformaat";
}  // namespace script_sleutel

// The lists of choices, in list order; the script stores the 0-based index.
inline constexpr std::array<std::string_view, 2> kPresentaties = {"Handmatig", "Automatisch"};
inline constexpr std::array<std::string_view, 3> kPositiesFotos = {
    "Links op de pagina", "Midden op de pagina", "Rechts op de pagina"};
inline constexpr std::array<std::string_view, 3> kPositiesBijschriften = {
    "Boven de foto", "Onder de foto", "Rechts naast de foto"};
inline constexpr std::array<std::string_view, 2> kFotosZonderBijschrift = {
    "Wel opnemen in kiekbord", "Niet opnemen in kiekbord"};
// The caption font list is a copy of the title font list.
inline constexpr std::array<std::string_view, 7> kLetterTypen = {
    "Arial", "Comic Sans MS", "Courier", "Courier New", "MS Sans Serif", "Times New Roman", "Verdana"};
inline constexpr std::array<std::string_view, 7> kLetterGrootten = {"1", "2", "3", "4", "5", "6", "7"};
inline constexpr std::array<std::string_view, 4> kLetterStijlen = {
    "Normaal", "Vet", "Cursief", "Vet en cursief"};

// One list field of "[Instellingen]": its key, its place in the record, its
// choices and the index a script without the key reads as.
struct KeuzeVeld {
  std::string_view sleutel;
  std::int16_t GalleryScript::*index;
  std::span<const std::string_view> keuzes;
  std::int16_t standaard;
};

// The list fields in the order the script writes them.
inline constexpr std::array<KeuzeVeld, 8> kKeuzeVelden = {{
    {"Presentatie", &GalleryScript::presentatie, kPresentaties, 0},
    {"PositieFotos", &GalleryScript::positie_fotos, kPositiesFotos, 0},
    {"PositieBijschriften", &GalleryScript::positie_bijschriften, kPositiesBijschriften, 0},
    {"FotosZonderBijschrift", &GalleryScript::fotos_zonder_bijschrift, kFotosZonderBijschrift, 0},
    {"LetterTypeTitels", &GalleryScript::lettertype_titels, kLetterTypen, 0},
    {"LetterTypeBijschriften", &GalleryScript::lettertype_bijschriften, kLetterTypen, 0},
    {"LetterGrootteBijschriften", &GalleryScript::lettergrootte_bijschriften, kLetterGrootten, 2},
    {"LetterStijlBijschriften", &GalleryScript::letterstijl_bijschriften, kLetterStijlen, 0},
}};

// One colour of "[Instellingen]": its key, its place in the record, the colour
// a script without the key reads as, the colour taken when the value is
// neither a number nor an HTML colour, and the colour the generation run
// reads a missing key as. The run's default for the text in the photo frame
// is black where the window's is white; each side keeps its own.
struct KleurVeld {
  std::string_view sleutel;
  std::int32_t GalleryScript::*kleur;
  std::int32_t standaard;
  std::int32_t terugval;
  std::int32_t run_standaard;
};

// The colours in the order the script writes them.
inline constexpr std::array<KleurVeld, 4> kKleurVelden = {{
    {"KleurTekstOpAchtergrond", &GalleryScript::kleur_tekst_op_achtergrond, 0, 0, 0},
    {"KleurAchtergrond", &GalleryScript::kleur_achtergrond, 16777215, 16777215, 16777215},
    {"KleurTekstInKader", &GalleryScript::kleur_tekst_in_kader, 16777215, 0, 0},
    {"KleurKader", &GalleryScript::kleur_kader, 13421772, 13421772, 13421772},
}};

// Whether the script writer writes the "Webformaat" key: when the setting
// is on, or when the script it came from had the key.
inline bool WebformaatSchrijven(const GalleryScript& script) {
  return script.webformaat || script.webformaat_in_script;
}

// The photo section of photo `nummer` (from 1): "Foto" and the number with
// at least three digits ("Foto001", "Foto042", "Foto1000").
std::string FotoSectie(long long nummer);

// The numbers i, 1 <= i <= n, ascending, of the "[Foto<digits>]" headers in
// a script table. Photo sections that are not there read as empty names and
// are skipped anyway; looking only at those that are keeps a hand-edited
// "AantalFotos=999999999" from taking for ever.
std::vector<long long> FotoSectieNummers(const LineTable& tabel, double n);

// A description as a script value: every line break (CR LF, or a lone CR or
// LF as a text box on this platform gives) becomes "<br>".
std::string BeschrijvingAlsWaarde(std::string_view beschrijving);

// A script value as a description: every "<br>" becomes CR LF, so a "<br>"
// the user typed comes back as a line break too.
std::string WaardeAlsBeschrijving(std::string_view waarde);

// A one-line field as a script value: a line break would split the key line
// and turn its rest into lines of their own, so each becomes a blank.
std::string EnkeleRegel(std::string_view tekst);

}  // namespace kiekbord
