// The thumbnail run of a generation: a small JPEG copy ("_tn.jpg") of every
// photo, rebuilt only when the photo changed or its thumbnail is missing.
// What each thumbnail was made from (the photo's time and size) is kept in
// "kb_tn.txt" in the photo folder, one section per base name.
//
// Photos are made on all cores, yet the log lines, "kb_tn.txt" and the files
// written are exactly those of a run that takes the photos one by one in
// gallery order: workers only read and compute, and everything that shows
// (log, files, messages) happens on the calling thread in order.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "base/failure_report.h"
#include "base/generation_log.h"
#include "images/ready_thumbnails.h"

namespace kiekbord {

struct ThumbnailOpties {
  // The program's data directory, where "GDIplus.txt" chooses the library.
  std::string program_dir;
  // Photos made at once: 0 for one per core, 1 for one by one.
  int gelijktijdig = 0;
  // Told after each photo: the number of photos done, of `aantal`.
  std::function<void(int gedaan, int totaal)> voortgang;
  // Asked after each photo: true stops the run there. The thumbnails made
  // so far stay, whole; "kb_tn.txt" is left as it was, so the photos not
  // reached are looked at again by the next run.
  std::function<bool()> afbreken;
  // Thumbnails made ahead from another decode of the same photos; taken
  // instead of decoding when the library is GDI+.
  KlareThumbnails* klare_thumbnails = nullptr;
};

// Makes the thumbnails of the first `aantal` photos of `namen` (file names
// in `foto_dir`, which ends in "/"), logging every step in `log`
// and writing "kb_tn.txt". Returns the error flag: false after "Bestand ...
// geschreven." or after a stop, true when the run ended on an error, which is then logged as
// "Error: " + description (the list file is not written; thumbnails made so
// far stay). Throws RunError only when the log itself cannot be written.
bool MaakThumbnails(const std::string& foto_dir, int aantal, const std::vector<std::string>& namen,
                    const ThumbnailOpties& opties, GenerationLog& log, FoutMelder& melder);

// The thumbnail of a photo: every ".jpg" in the path replaced by "_tn.jpg".
std::string ThumbnailPad(const std::string& foto_pad);

// The list file's section of a photo: the file name up to its first ".",
// lower-cased ("Vakantie.2.jpg" gives "vakantie").
std::string BasisNaam(const std::string& foto_pad);

// From the path's last "." to the end, lower-cased; "" without a ".".
std::string Extensie(const std::string& foto_pad);

// A modification time (nanoseconds since the epoch) as "datumtijd" holds
// it: local day-month-year hour:minutes:seconds, without leading zeros on
// day, month and hour ("3-8-2026 9:12:03").
std::string DatumTijdTekst(std::int64_t modified_ns);

}  // namespace kiekbord
