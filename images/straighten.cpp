#include "images/straighten.h"

#include <turbojpeg.h>

#include <memory>

#include "base/file_system.h"
#include "images/exif_data.h"
#include "images/photo_backup.h"
#include "images/turbo_jpeg.h"

namespace kiekbord {
namespace {

struct TjDestroyer {
  void operator()(void* handle) const { tjDestroy(handle); }
};
struct TjFreer {
  void operator()(unsigned char* buffer) const { tjFree(buffer); }
};

Status Fout(std::string beschrijving) { return Status::Error(fout::kProgramError, std::move(beschrijving)); }

// The lossless transform that shows a photo stored with this orientation
// upright.
int Bewerking(int orientatie) {
  switch (orientatie) {
    case 2: return TJXOP_HFLIP;
    case 3: return TJXOP_ROT180;
    case 4: return TJXOP_VFLIP;
    case 5: return TJXOP_TRANSPOSE;
    case 6: return TJXOP_ROT90;
    case 7: return TJXOP_TRANSVERSE;
    default: return TJXOP_ROT270;
  }
}

Status Transformeer(std::string_view jpeg, int bewerking, int opties, std::string& uit) {
  const std::unique_ptr<void, TjDestroyer> handle(tjInitTransform());
  if (!handle) return Fout(tjGetErrorStr2(nullptr));
  tjtransform transform{};
  transform.op = bewerking;
  transform.options = opties;
  unsigned char* buffer = nullptr;
  unsigned long grootte = 0;
  const int resultaat = tjTransform(handle.get(), reinterpret_cast<const unsigned char*>(jpeg.data()),
                                    jpeg.size(), 1, &buffer, &grootte, &transform, 0);
  const std::unique_ptr<unsigned char, TjFreer> bewaard(buffer);
  if (resultaat != 0) return Fout(tjGetErrorStr2(handle.get()));
  uit.assign(reinterpret_cast<const char*>(buffer), grootte);
  return Status::Ok();
}

// Turns `jpeg` upright without decoding it. A side that is not a whole
// number of blocks (8 or 16 pixels) cannot be turned losslessly where its
// partial edge blocks would come first; those blocks are trimmed off
// (TJXOPT_TRIM) rather than the photo decoded and encoded again: a phone
// photo loses at most 15 pixel rows or columns at one edge, which nobody
// misses, where a new encode would cost quality over the whole picture.
Status DraaiRechtop(std::string_view jpeg, const JpegKop& kop, int orientatie, std::string& uit, JpegKop& nieuw) {
  Status status = ToetsBeeldMaat(kop.breedte, kop.hoogte);
  if (!status.ok()) return status;
  const int bewerking = Bewerking(orientatie);
  // A perfect transform is tried first, so a photo that needs no trimming is
  // never trimmed; the trimming one only where that is refused.
  if (!Transformeer(jpeg, bewerking, TJXOPT_PERFECT, uit).ok()) {
    status = Transformeer(jpeg, bewerking, TJXOPT_TRIM, uit);
    if (!status.ok()) return status;
    const bool gedraaid = orientatie >= 5;
    JpegKop getrimd;
    status = LeesJpegKop(uit, getrimd);
    if (!status.ok()) return status;
    // The decoder leaves a photo smaller than one block untrimmed, and its
    // partial block would land in the wrong place.
    if (getrimd.breedte == (gedraaid ? kop.hoogte : kop.breedte) &&
        getrimd.hoogte == (gedraaid ? kop.breedte : kop.hoogte)) {
      return Fout("Image smaller than one block cannot be turned losslessly");
    }
  }
  return LeesJpegKop(uit, nieuw);
}

}  // namespace

Status SchoonJpegOp(std::string_view jpeg, const OpschoonOpdracht& opdracht, std::string& uit,
                    OpschoonUitkomst& uitkomst) {
  const ExifGegevens exif = LeesExif(jpeg);
  const bool draai = opdracht.rechtop && exif.orientatie != 1;
  const bool zonder_gps = opdracht.zonder_locatie && exif.gps;
  if (!draai && !zonder_gps) {
    uit.assign(jpeg);
    uitkomst = {};
    return Status::Ok();
  }
  OpschoonUitkomst nieuw;
  ExifWijziging wijziging;
  std::string beeld;
  if (draai) {
    JpegKop kop;
    JpegKop gedraaid;
    Status status = LeesJpegKop(jpeg, kop);
    if (status.ok()) status = DraaiRechtop(jpeg, kop, exif.orientatie, beeld, gedraaid);
    if (!status.ok()) return status;
    const bool kwartslag = exif.orientatie >= 5;
    nieuw.orientatie = exif.orientatie;
    nieuw.afgesneden_kolommen = (kwartslag ? kop.hoogte : kop.breedte) - gedraaid.breedte;
    nieuw.afgesneden_rijen = (kwartslag ? kop.breedte : kop.hoogte) - gedraaid.hoogte;
    wijziging = {true, gedraaid.breedte, gedraaid.hoogte, false};
  }
  wijziging.zonder_gps = zonder_gps;
  nieuw.locatie_verwijderd = zonder_gps;
  std::string herschreven;
  const Status status = HerschrijfExif(draai ? std::string_view(beeld) : jpeg, wijziging, herschreven);
  if (!status.ok()) return status;
  uit = std::move(herschreven);
  uitkomst = nieuw;
  return Status::Ok();
}

Status SchoonFotoOp(const std::string& foto_pad, const OpschoonOpdracht& opdracht, OpschoonUitkomst& uitkomst) {
  std::string jpeg;
  Status status = Fs().ReadFile(foto_pad, jpeg);
  if (!status.ok()) return status;
  std::string uit;
  OpschoonUitkomst nieuw;
  status = SchoonJpegOp(jpeg, opdracht, uit, nieuw);
  if (!status.ok()) return status;
  if (nieuw.Gewijzigd()) {
    if (opdracht.maak_backup && MaakBackup(foto_pad).empty()) return Fout("Error creating backup.");
    status = Fs().WriteFile(foto_pad, uit);
    if (!status.ok()) return status;
  }
  uitkomst = nieuw;
  return Status::Ok();
}

std::vector<std::string> OpschoonRegels(const std::string& naam, const OpschoonUitkomst& uitkomst) {
  std::vector<std::string> regels;
  if (uitkomst.orientatie != 1) {
    std::string regel = "Rechtop gezet: " + naam + " (oriëntatie " + std::to_string(uitkomst.orientatie) + ")";
    const int kolommen = uitkomst.afgesneden_kolommen;
    const int rijen = uitkomst.afgesneden_rijen;
    if (kolommen > 0 && rijen > 0) {
      regel += " (randen van " + std::to_string(kolommen) + " en " + std::to_string(rijen) + " pixels afgesneden)";
    } else if (kolommen > 0 || rijen > 0) {
      regel += " (rand van " + std::to_string(kolommen + rijen) + " pixels afgesneden)";
    }
    regels.push_back(std::move(regel));
  }
  if (uitkomst.locatie_verwijderd) regels.push_back("Locatie verwijderd: " + naam);
  return regels;
}

std::string OpschoonFoutRegel(const std::string& naam, const Status& status) {
  return "Fout " + std::to_string(status.number()) + " bij het bewerken van foto " + naam + " (" +
         status.description() + "); de foto is niet gewijzigd.";
}

}  // namespace kiekbord
