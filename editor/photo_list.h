// The photo list of step 2: the gallery's photos in page order with their
// captions, refreshed from the output directory, reordered and described.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "gallery/gallery_script.h"

namespace kiekbord {

// The photos of `uitvoer_dir` a gallery can show: photo files (no
// thumbnails) whose names are lower case, as the pages name them; sorted by
// name. Empty when the directory cannot be read.
std::vector<std::string> FotosInMap(const std::string& uitvoer_dir);

// The list after a refresh: the entries of `fotos` whose files are still in
// `uitvoer_dir`, in their order and with their captions, followed by the
// photos of `nieuw` that the list does not hold yet; when no entry is left,
// all photos of the directory. At most `maximum` entries.
std::vector<PhotoEntry> VernieuwdeLijst(const std::vector<PhotoEntry>& fotos, const std::string& uitvoer_dir,
                                        const std::vector<std::string>& nieuw, int maximum);

// Moves entry `index` one place towards the front or the back. Returns the
// entry's new index; `index` itself when it cannot move.
int FotoOmhoog(std::vector<PhotoEntry>& fotos, int index);
int FotoOmlaag(std::vector<PhotoEntry>& fotos, int index);

// Moves entry `van` to place `naar` (the places in between shift up or
// down), as dragging it in the list does. Returns the entry's new index;
// `van` itself when either place names no entry.
int FotoVerplaatsen(std::vector<PhotoEntry>& fotos, int van, int naar);

// Puts a removed entry back at its old `plek` (at the end when the list is
// shorter now). Returns its index; -1 when the list already holds that
// photo again or holds `maximum` entries.
int FotoTerugzetten(std::vector<PhotoEntry>& fotos, std::size_t plek, const PhotoEntry& foto, int maximum);

// The count line under the list: "2 foto('s) zonder bijschrift", "Alle
// foto's hebben een bijschrift." or "" for an empty list.
std::string ZonderBijschriftTekst(const std::vector<PhotoEntry>& fotos);

// The photo a command works on: the selected row of the list when it names
// one of the `aantal` photos; nothing for no selection or a stale row.
std::optional<std::size_t> GekozenFoto(int rij, std::size_t aantal);

// Which of the list's commands may run: on step 2 only (their shortcuts must
// not reach a list that is out of sight), and only on a chosen photo that can
// move that way.
struct FotoLijstKnoppen {
  bool toevoegen = false;
  bool omhoog = false;
  bool omlaag = false;
  bool verwijderen = false;
};
FotoLijstKnoppen FotoLijstToestand(bool op_fotostap, int rij, std::size_t aantal);

// A file size as the photo information shows it: "850 bytes", "12,4 kB",
// "3,2 MB" (decimal comma, 1024 bytes to the kB).
std::string BestandsGrootteTekst(std::int64_t bytes);

// The photo information of `lblFotoInfo`: the file name, the pixel size and
// the file size on three lines ("img_0001.jpg", "4000 x 3000 pixels",
// "3,2 MB"). A width or height of 0 or less means the file could not be
// read as a photo.
std::string FotoInfoTekst(const std::string& naam, int breedte, int hoogte, std::int64_t bytes);

}  // namespace kiekbord
