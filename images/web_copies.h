// Web-sized copies of the gallery's photos, for galleries made with the
// "Webformaat" setting: next to each photo "NAAM_w1600.jpg" and
// "NAAM_w800.jpg" (long side 1600 and 800 pixels, lightly sharpened,
// quality 82, no camera data; a size only for a photo larger than it) and a
// double-density thumbnail "NAAM_tn2.jpg" (the thumbnail rule with 300
// instead of 150). All of a photo's copies come from one decode.
//
// Like the thumbnails they are made again only when the photo changed or a
// copy is missing: "kb_web.txt" in the photo folder keeps, per photo file
// name, the time, length and size of the photo the copies were made from.
// Copies of photos that left the gallery are deleted. The photos are made
// on all cores; log lines and files come in gallery order.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/file_system.h"
#include "base/generation_log.h"
#include "images/photo_properties.h"
#include "images/ready_thumbnails.h"

namespace kiekbord {

// The long sides of the web-sized copies, largest first.
inline constexpr int kWebMaten[] = {1600, 800};
inline constexpr int kWebKwaliteit = 82;
inline constexpr int kDubbeleThumbnailGrens = 300;

// The size of the copy with long side `lange_zijde` of a breedte x hoogte
// photo (the short side rounded, at least 1); nothing when the photo is not
// larger than that.
std::optional<FotoMaat> WebKopieMaat(int breedte, int hoogte, int lange_zijde);

// The double-density thumbnail's size: the thumbnail rule with 300.
FotoMaat DubbeleThumbnailMaat(int breedte, int hoogte);

// The copy of a photo: every ".jpg" in its file name replaced by "_w<lange
// zijde>.jpg", exactly as thumbnails are named.
std::string WebKopiePad(const std::string& foto_naam, int lange_zijde);

// The double-density thumbnail: every ".jpg" replaced by "_tn2.jpg".
std::string DubbeleThumbnailPad(const std::string& foto_naam);

struct WebKopieOpties {
  // Photos made at once: 0 for one per core, 1 for one by one.
  int gelijktijdig = 0;
  // Told after each photo: the number of photos done, of the total.
  std::function<void(int gedaan, int totaal)> voortgang;
  // When set, every photo decoded also leaves its thumbnail ("_tn.jpg" as
  // the thumbnail run makes it) here for the thumbnail run to take.
  KlareThumbnails* klare_thumbnails = nullptr;
  // When set, told the pixel size of every photo whose copies are current
  // (from the list or just made), with the file state it belongs to, so the
  // pages need not read the photo again.
  std::function<void(const std::string& foto, const FileInfo& info, FotoMaat maat)> maat_bekend;
};

// Makes the copies of the photos `namen` (file names in `foto_dir`, which
// ends in "/") and writes "kb_web.txt". A photo whose copies cannot be made
// is logged and left out of the list, so it is tried again next time; the
// run goes on. Returns false after "Bestand ... geschreven."; true when the
// list file could not be read or written, which is logged as "Error: " +
// description. Throws RunError only when the log cannot be written.
bool MaakWebKopieen(const std::string& foto_dir, const std::vector<std::string>& namen,
                    const WebKopieOpties& opties, GenerationLog& log);

}  // namespace kiekbord
