#include "editor/photo_upright.h"

#include "base/file_system.h"
#include "base/text.h"
#include "images/exif_data.h"
#include "images/jpeg_segments.h"
#include "images/smooth_library.h"

namespace kiekbord {
namespace {

constexpr const char* kRegeleinde = "\r\n";

// The camera data stands in the first segments; this much holds it even
// behind a colour profile.
constexpr std::int64_t kKopGrootte = 256 * 1024;

// True when the head of the photo `bron` shows that `opdracht` has nothing
// to do: it holds every segment in front of the image data, and its camera
// data asks for no change. Saves reading whole photos that need nothing.
bool NietsTeDoen(const std::string& bron, const OpschoonOpdracht& opdracht) {
  std::string kop;
  if (!Fs().ReadFilePart(bron, 0, kKopGrootte, kop).ok() || !BeginsAsJpeg(kop)) return false;
  if (LoopSegmenten(kop, [](unsigned, std::size_t) { return false; }).marker != 0xDA) return false;
  const ExifGegevens exif = LeesExif(kop);
  return !(opdracht.rechtop && exif.orientatie != 1) && !(opdracht.zonder_locatie && exif.gps);
}

Status KopieerHeif(const std::string& bron, const std::string& doel, const OpschoonOpdracht& opdracht) {
  std::string heif;
  Status status = Fs().ReadFile(bron, heif);
  std::string jpeg;
  if (status.ok()) status = HeifNaarJpeg(heif, opdracht.zonder_locatie, jpeg);
  if (!status.ok()) return status;
  return Fs().WriteFile(doel, jpeg);
}

}  // namespace

OpschoonOpdracht KopieOpschoning(const UserPreferences& voorkeuren) {
  return {.rechtop = voorkeuren.rechtop_bij_kopieren == 1,
          .zonder_locatie = voorkeuren.zonder_locatie_bij_kopieren == 1,
          .maak_backup = false};
}

std::string KopieenTekst(const UserPreferences& voorkeuren) {
  const OpschoonOpdracht opdracht = KopieOpschoning(voorkeuren);
  if (opdracht.rechtop && opdracht.zonder_locatie) {
    return "Kopieën worden rechtop gezet en zonder locatiegegevens opgeslagen.";
  }
  if (opdracht.rechtop) return "Kopieën worden rechtop gezet; hun locatiegegevens blijven bewaard.";
  if (opdracht.zonder_locatie) return "Kopieën worden zonder locatiegegevens opgeslagen, maar niet rechtop gezet.";
  return "Kopieën worden niet rechtop gezet en houden hun locatiegegevens.";
}

bool IsHeifBestand(std::string_view naam) {
  const std::string klein = Lower(naam);
  return EndsWith(klein, ".heic") || EndsWith(klein, ".heif");
}

std::string KopieNaam(const std::string& bestand) {
  const std::string klein = Lower(bestand);
  return IsHeifBestand(klein) ? klein.substr(0, klein.size() - 5) + ".jpg" : klein;
}

Status KopieerOpgeschoond(const std::string& bron, const std::string& doel, const OpschoonOpdracht& opdracht,
                          KopieUitkomst& uitkomst) {
  uitkomst = {};
  if (IsHeifBestand(bron)) return KopieerHeif(bron, doel, opdracht);
  if ((!opdracht.rechtop && !opdracht.zonder_locatie) || NietsTeDoen(bron, opdracht)) {
    return CopyFileKeepingTime(bron, doel);
  }
  std::string jpeg;
  if (const Status gelezen = Fs().ReadFile(bron, jpeg); !gelezen.ok()) return gelezen;
  std::string uit;
  OpschoonUitkomst opgeschoond;
  const std::string naam = FileNameOf(doel);
  if (const Status status = SchoonJpegOp(jpeg, opdracht, uit, opgeschoond); !status.ok()) {
    uitkomst.fout = OpschoonFoutRegel(naam, status);
    // A photo that cannot be turned still loses its location when asked.
    OpschoonOpdracht alleen_locatie = opdracht;
    alleen_locatie.rechtop = false;
    if (!opdracht.zonder_locatie || !SchoonJpegOp(jpeg, alleen_locatie, uit, opgeschoond).ok()) opgeschoond = {};
  }
  // Nothing to change: the copy is the photo itself, time included.
  if (!opgeschoond.Gewijzigd()) return CopyFileKeepingTime(bron, doel);
  if (const Status status = Fs().WriteFile(doel, uit); !status.ok()) return status;
  uitkomst.regels = OpschoonRegels(naam, opgeschoond);
  return Status::Ok();
}

std::optional<Melding> KopieFoutMelding(const std::vector<std::string>& fouten) {
  if (fouten.empty()) return std::nullopt;
  std::string tekst;
  for (const std::string& fout : fouten) tekst += (tekst.empty() ? "" : kRegeleinde) + fout;
  return Melding{MeldingSoort::kWaarschuwing, tekst};
}

bool IsGedraaidOpgeslagen(const std::string& pad) {
  std::string kop;
  if (!Fs().ReadFilePart(pad, 0, kKopGrootte, kop).ok()) return false;
  return LeesExif(kop).orientatie != 1;
}

std::vector<std::string> ZetRechtopInMap(const std::string& uitvoer_dir, const std::vector<std::string>& namen,
                                         bool maak_backup) {
  std::vector<std::string> fouten;
  for (const std::string& naam : namen) {
    OpschoonUitkomst uitkomst;
    const Status status =
        SchoonFotoOp(WithTrailingSlash(uitvoer_dir) + naam, {.rechtop = true, .maak_backup = maak_backup}, uitkomst);
    if (!status.ok()) fouten.push_back(OpschoonFoutRegel(naam, status));
  }
  return fouten;
}

}  // namespace kiekbord
