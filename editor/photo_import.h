// Bringing photos into the output directory, where the pages refer to them
// by lower-case names: the copy from the input directory and the lower-case
// rename that follow step 1 of the wizard, and the single photos added or
// removed on step 2.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "gallery/gallery_script.h"
#include "base/melding.h"
#include "base/status.h"
#include "images/straighten.h"

namespace kiekbord {

// The copy question and the rename message of the wizard's Next.
Melding KopieerVraag();
// "Van <n> fotobestand(en) is de naam omgezet naar kleine letters." and why;
// nothing for 0 renames.
std::optional<Melding> HernoemMelding(int aantal);

// Two directory texts name the same directory for the wizard: equal in lower
// case, a trailing "/" aside.
bool ZelfdeMap(const std::string& a, const std::string& b);

// True when `directory` holds a file matching "*.jpg" (any case).
bool BevatJpgBestanden(const std::string& directory);

// A photo file of the gallery: a name whose last four characters are ".jpg"
// in any case and that is no thumbnail (no "_tn." in it, in any case).
bool IsFotoBestand(const std::string& naam);

struct ImportResultaat {
  int aantal = 0;                 // files copied or renamed
  std::optional<Melding> fout;    // the error that ended the operation early
  std::vector<std::string> opschoon_fouten;  // copies made unchanged (OpschoonFoutRegel)
};

// Copies the photo files of `invoer_dir` (in name order) into `uitvoer_dir`
// under lower-case names, overwriting files of those names, until `maximum`
// photos are copied. An error ends the copy at that file; the files copied
// before it stay, and `fout` says what went wrong. Each copy is turned
// upright and/or loses its location as `opschoning` asks (see
// KopieerOpgeschoond); without either it is a plain copy.
ImportResultaat FotosKopieren(const std::string& invoer_dir, const std::string& uitvoer_dir, int maximum,
                              const OpschoonOpdracht& opschoning = {.maak_backup = false});

// Renames the photo files of `uitvoer_dir` whose names are not lower case to
// their lower-case names; on the operating system "Vista" through a
// temporary name "temp_<name>". A lower-case name that is already taken is
// never overwritten: the rename stops there with an error (58). An error ends
// the operation at that file; the files renamed before it stay.
ImportResultaat FotosHernoemen(const std::string& uitvoer_dir, const std::string& os_naam);

// --- Single photos of step 2 -----------------------------------------------------

// What adding the file `bron` to the gallery takes. A HEIC/HEIF photo is
// added as the JPEG file it is copied to (KopieNaam).
struct ToevoegPlan {
  enum class Soort {
    kKopieren,     // copy `bron` to `doel`, then add `naam`
    kVervangen,    // as kKopieren, but `doel` exists: ask `melding` first
    kAlleenLijst,  // `bron` is already the gallery file `naam`: just add it
    kAlInLijst,    // the gallery holds `naam` already: tell `melding`
    kGeweigerd,    // not a photo file, or the gallery is full: tell `melding`
  };
  Soort soort = Soort::kGeweigerd;
  std::string naam;  // the lower-case name in the output directory
  std::string doel;  // the output directory's path for it
  Melding melding{MeldingSoort::kInformatie, ""};
};

ToevoegPlan PlanToevoegen(const std::string& bron, const std::string& uitvoer_dir,
                          const std::vector<PhotoEntry>& fotos, int maximum);

// The message when the gallery holds `maximum` photos already.
Melding LijstVolMelding(int maximum);

// The error after a failed copy of `bron` to `doel`.
Melding KopieerFoutMelding(const std::string& bron, const std::string& doel, const Status& status);

// The question before a photo is deleted from the disk (a warning, with
// "Nee" as its default answer), and the error after a failed delete.
Melding VerwijderVraag(const std::string& naam);
Melding VerwijderFoutMelding(const std::string& pad, const Status& status);

// Deletes the photo `naam` of `uitvoer_dir` and its thumbnail when there is
// one. The photo's own delete decides the result; the thumbnail is rebuilt
// or left alone by the next generation anyway.
Status FotoWissen(const std::string& uitvoer_dir, const std::string& naam);

}  // namespace kiekbord
