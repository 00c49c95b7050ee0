// Photos from phones in the window: copies into the output directory made
// upright and without location as the user's preferences ask, HEIC/HEIF
// photos copied as upright JPEG files, the mark of a photo that is stored
// turned, and turning such photos upright in place.
//
// The originals in the input directory are only ever read.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/user_preferences.h"
#include "base/melding.h"
#include "base/status.h"
#include "images/straighten.h"

namespace kiekbord {

// What a copy into the output directory gets done to it, by the two copy
// preferences. No backup: the copy is new and the original stays where it
// was.
OpschoonOpdracht KopieOpschoning(const UserPreferences& voorkeuren);

// The line on the photos step that says what happens to copies:
// "Kopieën worden rechtop gezet en zonder locatiegegevens opgeslagen." and
// the forms for one preference or none.
std::string KopieenTekst(const UserPreferences& voorkeuren);

// True for a HEIC/HEIF photo: a name ending in ".heic" or ".heif", any case.
bool IsHeifBestand(std::string_view naam);

// The name a photo is copied under in the output directory: lower case, and
// for a HEIC/HEIF photo with ".jpg" in place of its extension.
std::string KopieNaam(const std::string& bestand);

// What a copy did besides copying.
struct KopieUitkomst {
  std::vector<std::string> regels;  // OpschoonRegels of the copy
  std::optional<std::string> fout;  // OpschoonFoutRegel: copied unchanged instead
};

// Copies the photo `bron` to `doel` as `opdracht` asks. A photo that needs
// nothing is copied byte for byte with its time, as a plain copy; a changed
// copy is written in one step. A photo that cannot be changed (camera data
// that cannot be rewritten, a picture smaller than one block) is still
// copied, without its location where only the turn failed, and `fout` says
// so. A HEIC/HEIF photo is converted (HeifNaarJpeg). Returns the read,
// conversion or write error; `doel` is then not written.
Status KopieerOpgeschoond(const std::string& bron, const std::string& doel, const OpschoonOpdracht& opdracht,
                          KopieUitkomst& uitkomst);

// The warning after copies that could not be changed: their lines, one a
// line. Nothing when there are none.
std::optional<Melding> KopieFoutMelding(const std::vector<std::string>& fouten);

// True when the photo at `pad` carries an orientation other than 1: it is
// stored turned, and the site shows it so until it is set upright. Reads
// only the head of the file; false when it cannot be read.
bool IsGedraaidOpgeslagen(const std::string& pad);

// Turns the photos `namen` of `uitvoer_dir` upright in place, each after its
// backup when `maak_backup`. Returns the lines of the photos that failed
// (OpschoonFoutRegel); those stay as they were.
std::vector<std::string> ZetRechtopInMap(const std::string& uitvoer_dir, const std::vector<std::string>& namen,
                                         bool maak_backup);

}  // namespace kiekbord
