#include "images/pixel_edit.h"

#include <algorithm>
#include <utility>

#include "base/file_system.h"
#include "base/text.h"
#include "base/generation_log.h"
#include "base/failure_report.h"
#include "images/exif_data.h"
#include "images/ijl_library.h"
#include "images/photo_backup.h"
#include "images/photo_failures.h"

namespace kiekbord {
namespace {

constexpr std::string_view kThumbnailFrase = " tijdens aanmaken IJL thumbnail.";
constexpr std::string_view kRoteerFrase = " tijdens roteren foto.";

Status RoteerFout(FoutMelder& melder, Status fout) {
  melder.Meld(FoutTekst(fout, kRoteerFrase, false));
  return fout;
}

// Where pixel (x, y) of a w x h picture stored with orientation `o` lands
// in the upright picture.
std::pair<int, int> RechtopPlek(int o, int x, int y, int w, int h) {
  switch (o) {
    case 2: return {w - 1 - x, y};
    case 3: return {w - 1 - x, h - 1 - y};
    case 4: return {x, h - 1 - y};
    case 5: return {y, x};
    case 6: return {h - 1 - y, x};
    case 7: return {h - 1 - y, w - 1 - x};
    case 8: return {y, w - 1 - x};
    default: return {x, y};
  }
}

}  // namespace

void PuntThumbnail(const cDIBSection& bron, cDIBSection& doel, int d) {
  // The sample rows and columns run up to and including the source's height
  // and width; the one past the edge falls outside and is left out.
  for (int ty = 0, sy = 0; sy <= bron.Height(); ++ty, sy += d) {
    for (int tx = 0, sx = 0; sx <= bron.Width(); ++tx, sx += d) {
      if (bron.Contains(sx, sy) && doel.Contains(tx, ty)) doel.SetPixel(tx, ty, bron.GetPixel(sx, sy));
    }
  }
}

bool RoteerPixels(const cDIBSection& bron, cDIBSection& doel, bool links) {
  const int w = bron.Width();
  const int h = bron.Height();
  if (!doel.Create(h, w)) return false;
  for (int y = 0; y < h; ++y) {
    for (int x = 0; x < w; ++x) {
      if (links) {
        doel.SetPixel(y, w - 1 - x, bron.GetPixel(x, y));
      } else {
        doel.SetPixel(h - 1 - y, x, bron.GetPixel(x, y));
      }
    }
  }
  return true;
}

bool RechtopPixels(const cDIBSection& bron, cDIBSection& doel, int orientatie) {
  const int w = bron.Width();
  const int h = bron.Height();
  if (!doel.Create(orientatie >= 5 ? h : w, orientatie >= 5 ? w : h)) return false;
  for (int y = 0; y < h; ++y) {
    for (int x = 0; x < w; ++x) {
      const auto [tx, ty] = RechtopPlek(orientatie, x, y, w, h);
      doel.SetPixel(tx, ty, bron.GetPixel(x, y));
    }
  }
  return true;
}

bool IsLinksom(std::string_view richting) {
  return Lower(richting.substr(0, std::min<std::size_t>(richting.size(), 5))) == "links";
}

ThumbnailWerk MaakIjlThumbnail(std::string_view jpeg, const std::string& thumb_pad) {
  ThumbnailWerk werk;
  cDIBSection bron;
  werk.fout = LoadJPGUitBytes(bron, jpeg);
  if (!werk.fout.ok()) return werk;
  werk.aanmaak_regel = "Aanmaken (IJL) thumbnail " + thumb_pad + "...";
  const ThumbnailMaat maat = BerekenThumbnailMaat(bron.Width(), bron.Height());
  cDIBSection doel;
  if (!doel.Create(maat.breedte, maat.hoogte)) {
    werk.fout = Status::Error(fout::kOutOfMemory);
    return werk;
  }
  PuntThumbnail(bron, doel, ThumbnailDeler(bron.Width(), bron.Height()));
  bron.ClearUp();
  werk.fout = SaveJPGNaarBytes(doel, kIjlKwaliteit, werk.jpeg);
  return werk;
}

Status VoltooiIjlThumbnail(const ThumbnailWerk& werk, const std::string& thumb_pad, GenerationLog& log, FoutMelder& melder) {
  if (!werk.aanmaak_regel.empty()) log.SchrijfLog(werk.aanmaak_regel);
  Status status = werk.fout;
  if (status.ok()) status = Fs().WriteFile(thumb_pad, werk.jpeg);
  if (!status.ok()) {
    log.SchrijfLog(status.description());
    melder.Meld(FoutTekst(status, kThumbnailFrase, false));
  }
  return status;
}

Status IJLMaakThumb(const std::string& foto_pad, const std::string& thumb_pad, GenerationLog& log, FoutMelder& melder) {
  std::string jpeg;
  const Status gelezen = Fs().ReadFile(foto_pad, jpeg);
  ThumbnailWerk werk = gelezen.ok() ? MaakIjlThumbnail(jpeg, thumb_pad) : ThumbnailWerk{"", gelezen, ""};
  if (gelezen.ok()) werk.fout = FotoFout(foto_pad, jpeg, werk.fout);
  return VoltooiIjlThumbnail(werk, thumb_pad, log, melder);
}

Status IJLRoteerImg(const std::string& foto_pad, std::string_view richting, bool maak_backup,
                    FoutMelder& melder) {
  if (maak_backup && MaakBackup(foto_pad).empty()) {
    return RoteerFout(melder, Status::Error(fout::kProgramError, "Error creating backup."));
  }
  cDIBSection bron;
  std::string jpeg;
  Status geladen = Fs().ReadFile(foto_pad, jpeg);
  if (geladen.ok()) geladen = FotoFout(foto_pad, jpeg, LoadJPGUitBytes(bron, jpeg));
  if (!geladen.ok()) return RoteerFout(melder, geladen);
  // A photo the camera stored turned is turned the way it is shown first,
  // so the quarter turn starts from what the user sees.
  const int orientatie = LeesExif(jpeg).orientatie;
  cDIBSection rechtop;
  if (orientatie != 1 && !RechtopPixels(bron, rechtop, orientatie)) {
    return RoteerFout(melder, Status::Error(fout::kOutOfMemory));
  }
  cDIBSection doel;
  if (!RoteerPixels(orientatie != 1 ? rechtop : bron, doel, IsLinksom(richting))) {
    return RoteerFout(melder, Status::Error(fout::kOutOfMemory));
  }
  bron.ClearUp();
  rechtop.ClearUp();

  // The turned photo goes to its temporary file, which is renamed over the
  // photo in one step: whatever fails, the photo stays as it was.
  const std::string tmp_pad = foto_pad + "_tmp";
  Status status = SaveJPGNaarBytes(doel, kIjlKwaliteit, jpeg);
  if (status.ok()) status = Fs().WriteFile(tmp_pad, jpeg);
  if (status.ok()) status = Fs().RenameFile(tmp_pad, foto_pad);
  if (!status.ok()) return RoteerFout(melder, status);
  return Status::Ok();
}

}  // namespace kiekbord
