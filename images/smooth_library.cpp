#include "images/smooth_library.h"

#include <dlfcn.h>
#include <vips/vips.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <mutex>
#include <new>
#include <vector>

#include "base/file_system.h"
#include "base/generation_log.h"
#include "base/text_helpers.h"
#include "base/failure_report.h"
#include "images/exif_data.h"
#include "images/photo_backup.h"
#include "images/lanczos_shrink.h"
#include "images/photo_failures.h"
#include "images/thumbnail_decode.h"
#include "images/pixel_edit.h"
#include "images/turbo_jpeg.h"

namespace kiekbord {
namespace {

constexpr std::string_view kThumbnailFrase = " tijdens aanmaken GDI thumbnail.";
constexpr std::string_view kRoteerFrase = " tijdens roteren foto (GDI).";
constexpr std::string_view kVerkleinFrase = " tijdens verkleinen foto (GDI).";

// libvips and GLib, loaded when a photo first needs them rather than with
// the program: its hundred or so libraries took some 20 ms of processor time
// at every start, and a thumbnail run of ordinary photos never calls it.
struct VipsFuncties {
  decltype(&::vips_init) init;
  decltype(&::vips_version_string) version_string;
  decltype(&::vips_cache_set_max) cache_set_max;
  decltype(&::vips_concurrency_set) concurrency_set;
  decltype(&::vips_error_buffer_copy) error_buffer_copy;
  decltype(&::vips_jpegload_buffer) jpegload_buffer;
  decltype(&::vips_jpegsave_buffer) jpegsave_buffer;
  decltype(&::vips_image_get_width) image_get_width;
  decltype(&::vips_image_get_height) image_get_height;
  decltype(&::vips_image_get_interpretation) image_get_interpretation;
  decltype(&::vips_thumbnail_image) thumbnail_image;
  decltype(&::vips_rot) rot;
  decltype(&::vips_flip) flip;
  decltype(&::vips_heifload_buffer) heifload_buffer;
  decltype(&::vips_image_get_blob) image_get_blob;
  decltype(&::vips_colourspace) colourspace;
  decltype(&::g_object_unref) object_unref;
  decltype(&::g_free) free;
  decltype(&::g_log_set_handler) log_set_handler;
};

// The package's library name, the same for every libvips 8.
constexpr const char* kVipsBibliotheek = "libvips.so.42";

template <typename Functie>
bool Zoek(void* bibliotheek, const char* naam, Functie& functie) {
  functie = reinterpret_cast<Functie>(::dlsym(bibliotheek, naam));
  return functie != nullptr;
}

// The functions, loaded once; nullptr when libvips cannot be loaded.
const VipsFuncties* LaadVips() {
  static const VipsFuncties* geladen = []() -> const VipsFuncties* {
    void* bibliotheek = ::dlopen(kVipsBibliotheek, RTLD_NOW | RTLD_LOCAL);
    if (bibliotheek == nullptr) return nullptr;
    static VipsFuncties f;
    const bool alle =
        Zoek(bibliotheek, "vips_init", f.init) && Zoek(bibliotheek, "vips_version_string", f.version_string) &&
        Zoek(bibliotheek, "vips_cache_set_max", f.cache_set_max) &&
        Zoek(bibliotheek, "vips_concurrency_set", f.concurrency_set) &&
        Zoek(bibliotheek, "vips_error_buffer_copy", f.error_buffer_copy) &&
        Zoek(bibliotheek, "vips_jpegload_buffer", f.jpegload_buffer) &&
        Zoek(bibliotheek, "vips_jpegsave_buffer", f.jpegsave_buffer) &&
        Zoek(bibliotheek, "vips_image_get_width", f.image_get_width) &&
        Zoek(bibliotheek, "vips_image_get_height", f.image_get_height) &&
        Zoek(bibliotheek, "vips_image_get_interpretation", f.image_get_interpretation) &&
        Zoek(bibliotheek, "vips_thumbnail_image", f.thumbnail_image) && Zoek(bibliotheek, "vips_rot", f.rot) &&
        Zoek(bibliotheek, "vips_flip", f.flip) && Zoek(bibliotheek, "vips_heifload_buffer", f.heifload_buffer) &&
        Zoek(bibliotheek, "vips_image_get_blob", f.image_get_blob) &&
        Zoek(bibliotheek, "vips_colourspace", f.colourspace) &&
        Zoek(bibliotheek, "g_object_unref", f.object_unref) && Zoek(bibliotheek, "g_free", f.free) &&
        Zoek(bibliotheek, "g_log_set_handler", f.log_set_handler);
    return alle ? &f : nullptr;
  }();
  return geladen;
}

// The loaded functions; only after StartVips succeeded.
const VipsFuncties& Vips() { return *LaadVips(); }

struct VipsUnref {
  void operator()(VipsImage* image) const { Vips().object_unref(image); }
};
using VipsBeeld = std::unique_ptr<VipsImage, VipsUnref>;

struct GFreer {
  void operator()(void* memory) const { Vips().free(memory); }
};

Status Fout(std::string description) {
  return Status::Error(fout::kProgramError, std::move(description));
}

// The last line of libvips' error buffer, which is then cleared. libvips
// also files libjpeg's warnings there, so the cause of a failure is the
// line added last.
std::string VipsMelding() {
  const std::unique_ptr<char, GFreer> buffer(Vips().error_buffer_copy());
  std::string text = buffer ? buffer.get() : "";
  while (!text.empty() && text.back() == '\n') text.pop_back();
  if (const auto begin = text.rfind('\n'); begin != std::string::npos) text.erase(0, begin + 1);
  return text.empty() ? "libvips error" : text;
}

// libvips keeps one error buffer for the whole process. Each piece of work
// that may fail in libvips and then read that buffer holds this lock, so two
// photos failing at once on two workers never get each other's message (or
// none). Only the rare libvips-only paths of a thumbnail run take it.
std::unique_lock<std::mutex> AlleenMetVips() {
  static std::mutex vips_fouten;
  return std::unique_lock<std::mutex>(vips_fouten);
}

Status StartVips() {
  static std::once_flag once;
  static bool started = false;
  std::call_once(once, [] {
    started = LaadVips() != nullptr && Vips().init("kiekbord") == 0;
    if (!started) return;
    // Images made over memory the caller owns must never come back from
    // libvips' operation cache once that memory is gone.
    Vips().cache_set_max(0);
    // The thumbnail run already keeps every core busy with a photo of its
    // own; libvips' worker threads would only compete with it.
    Vips().concurrency_set(1);
    // Damage that libjpeg works around is not the user's concern; real
    // failures come back as errors and are reported as such.
    Vips().log_set_handler("VIPS", G_LOG_LEVEL_WARNING, [](const gchar*, GLogLevelFlags, const gchar*, gpointer) {},
                      nullptr);
  });
  return started ? Status::Ok() : Fout("Failed to start libvips");
}

// Loads a JPEG, and only a JPEG: a renamed PNG or anything else is refused
// rather than handed to whichever loader libvips finds. `krimp` (1, 2, 4 or
// 8) shrinks on load.
Status LaadJpeg(std::string_view jpeg, int krimp, VipsBeeld& beeld) {
  VipsImage* raw = nullptr;
  if (Vips().jpegload_buffer(const_cast<char*>(jpeg.data()), jpeg.size(), &raw, "shrink", krimp, nullptr) != 0) {
    return Fout("Cannot load image: " + VipsMelding());
  }
  beeld.reset(raw);
  return Status::Ok();
}

// The largest shrink-on-load factor that keeps at least min_breedte x
// min_hoogte pixels.
int KiesKrimp(int breedte, int hoogte, int min_breedte, int min_hoogte) {
  for (const int krimp : {8, 4, 2}) {
    if ((breedte + krimp - 1) / krimp >= min_breedte && (hoogte + krimp - 1) / krimp >= min_hoogte) return krimp;
  }
  return 1;
}

Status Encode(VipsImage* image, int kwaliteit, std::string& jpeg) {
  void* buffer = nullptr;
  std::size_t length = 0;
  if (Vips().jpegsave_buffer(image, &buffer, &length, "Q", kwaliteit, "strip", TRUE,
                           "subsample_mode", VIPS_FOREIGN_SUBSAMPLE_ON, nullptr) != 0) {
    return Fout("Cannot save JPEG: " + VipsMelding());
  }
  const std::unique_ptr<void, GFreer> owned(buffer);
  jpeg.assign(static_cast<const char*>(owned.get()), length);
  return Status::Ok();
}

// The usual way: libjpeg-turbo decodes at the smallest DCT scale that keeps
// twice the thumbnail size (shrink-on-load: the full image is never
// decoded), a Lanczos-3 filter of our own shrinks that to the exact size,
// libjpeg-turbo encodes. libvips is not started for it: its start-up alone
// took some 35 ms of every run, and its resample (with the lock its error
// buffer needs) cost more than the filter here.
void ThumbnailViaSchaal(std::string_view jpeg, const JpegKop& kop, ThumbnailWerk& werk) {
  const ThumbnailMaat maat = BerekenThumbnailMaat(kop.breedte, kop.hoogte);
  const Schaal schaal = KiesSchaal(kop.breedte, kop.hoogte, 2 * maat.breedte, 2 * maat.hoogte);
  const int breedte = schaal.Pas(kop.breedte);
  const int hoogte = schaal.Pas(kop.hoogte);
  std::vector<std::uint8_t> rgb;
  try {
    rgb.resize(static_cast<std::size_t>(breedte) * hoogte * 3);
  } catch (const std::bad_alloc&) {
    werk.fout = Status::Error(fout::kOutOfMemory);
    return;
  }
  const Status gedecodeerd = DecodeerVoorThumbnail(
      jpeg, schaal, PixelVlak{rgb.data(), breedte, hoogte, breedte * 3, PixelVolgorde::kRgb, false});
  if (!gedecodeerd.ok()) {
    werk.fout = Fout("Cannot read image data: " + gedecodeerd.description());
    return;
  }
  std::vector<std::uint8_t> klein;
  try {
    klein = VerkleinLanczos(rgb, breedte, hoogte, maat);
  } catch (const std::bad_alloc&) {
    werk.fout = Status::Error(fout::kOutOfMemory);
    return;
  }
  const Status gecodeerd = CodeerJpeg(
      PixelVlak{klein.data(), maat.breedte, maat.hoogte, maat.breedte * 3, PixelVolgorde::kRgb, false},
      kGdiThumbnailKwaliteit, werk.jpeg);
  if (!gecodeerd.ok()) werk.fout = Fout("Cannot save JPEG: " + gecodeerd.description());
}

// The way for what libjpeg-turbo's simple interface will not decode (CMYK,
// unusual chroma sampling): libvips' JPEG loader shrinks on load and its
// thumbnail call resamples and converts the colours to sRGB.
void ThumbnailViaVips(std::string_view jpeg, const std::string& thumb_pad, const Status& kop_fout,
                      ThumbnailWerk& werk) {
  werk.fout = StartVips();
  if (!werk.fout.ok()) return;
  const auto lock = AlleenMetVips();
  VipsBeeld kop;
  if (!LaadJpeg(jpeg, 1, kop).ok()) {
    // libjpeg-turbo's reason says more than libvips' about a file that is
    // no JPEG at all.
    werk.fout = kop_fout.ok() ? Fout("Cannot load image: " + VipsMelding()) : Fout("Cannot load image: " + kop_fout.description());
    return;
  }
  const int breedte = Vips().image_get_width(kop.get());
  const int hoogte = Vips().image_get_height(kop.get());
  werk.fout = ToetsBeeldMaat(breedte, hoogte);
  if (!werk.fout.ok()) return;
  werk.aanmaak_regel = "Aanmaken (GDI) thumbnail " + thumb_pad + "...";
  const ThumbnailMaat maat = BerekenThumbnailMaat(breedte, hoogte);
  VipsBeeld geladen;
  werk.fout = LaadJpeg(jpeg, KiesKrimp(breedte, hoogte, 2 * maat.breedte, 2 * maat.hoogte), geladen);
  if (!werk.fout.ok()) return;
  VipsImage* raw = nullptr;
  if (Vips().thumbnail_image(geladen.get(), &raw, maat.breedte, "height", maat.hoogte, "size", VIPS_SIZE_FORCE,
                           "no_rotate", TRUE, nullptr) != 0) {
    werk.fout = Fout("Cannot read image data: " + VipsMelding());
    return;
  }
  const VipsBeeld klein(raw);
  werk.fout = Encode(klein.get(), kGdiThumbnailKwaliteit, werk.jpeg);
}

// Loads a whole photo for rotation or shrinking.
Status LaadFoto(const std::string& foto_pad, std::string& jpeg, VipsBeeld& beeld) {
  Status status = StartVips();
  if (status.ok()) status = Fs().ReadFile(foto_pad, jpeg);
  if (status.ok()) status = ToetsGeclaimdeMaat(jpeg);
  if (status.ok()) status = FotoFout(foto_pad, jpeg, LaadJpeg(jpeg, 1, beeld));
  if (!status.ok()) return status;
  return ToetsBeeldMaat(Vips().image_get_width(beeld.get()), Vips().image_get_height(beeld.get()));
}

// A CMYK photo (a rotation keeps its colours as they were) becomes sRGB, so
// that every edited photo is an ordinary RGB JPEG.
Status NaarSrgb(VipsBeeld& beeld) {
  if (Vips().image_get_interpretation(beeld.get()) != VIPS_INTERPRETATION_CMYK) return Status::Ok();
  VipsImage* raw = nullptr;
  if (Vips().colourspace(beeld.get(), &raw, VIPS_INTERPRETATION_sRGB, nullptr) != 0) {
    return Fout("Cannot convert colours: " + VipsMelding());
  }
  beeld.reset(raw);
  return Status::Ok();
}

// Writes the edited photo to its temporary file and renames that over the
// photo in one step.
Status VervangFoto(const std::string& foto_pad, std::string_view jpeg) {
  const std::string tijdelijk = TijdelijkPad(foto_pad);
  // Without ".jpg" in the path the temporary file would be the photo itself;
  // refuse as the rename after it would have, but leave the photo alone.
  if (tijdelijk == foto_pad) return Status::Error(fout::kFileNotFound);
  const Status geschreven = Fs().WriteFile(tijdelijk, jpeg);
  if (!geschreven.ok()) return geschreven;
  return Fs().RenameFile(tijdelijk, foto_pad);
}

// An edit turns the loaded photo (and its bytes, for shrinking on load) into
// a new image.
using Bewerking = std::function<Status(const std::string& jpeg, VipsImage* beeld, VipsBeeld& uit)>;

Status Bewerk(const std::string& foto_pad, bool maak_backup, const Bewerking& bewerking,
              int kwaliteit) {
  if (maak_backup && MaakBackup(foto_pad).empty()) return Fout("Error creating backup.");
  const auto lock = AlleenMetVips();
  std::string jpeg;
  VipsBeeld beeld;
  Status status = LaadFoto(foto_pad, jpeg, beeld);
  if (!status.ok()) return status;
  VipsBeeld nieuw;
  status = bewerking(jpeg, beeld.get(), nieuw);
  if (status.ok()) status = NaarSrgb(nieuw);
  if (!status.ok()) return status;
  std::string uit;
  status = Encode(nieuw.get(), kwaliteit, uit);
  if (!status.ok()) return status;
  return VervangFoto(foto_pad, uit);
}

// `beeld`, stored as the orientation tag `orientatie` (2..8) says, turned
// upright: a turn clockwise, then for the mirrored orientations a mirror
// left to right.
Status ZetRechtop(VipsImage* beeld, int orientatie, VipsBeeld& uit) {
  struct Stap {
    VipsAngle hoek;
    bool spiegel;
  };
  static constexpr Stap kStappen[] = {{VIPS_ANGLE_D0, false},  {VIPS_ANGLE_D0, true},  {VIPS_ANGLE_D180, false},
                                      {VIPS_ANGLE_D180, true}, {VIPS_ANGLE_D90, true}, {VIPS_ANGLE_D90, false},
                                      {VIPS_ANGLE_D270, true}, {VIPS_ANGLE_D270, false}};
  const Stap stap = kStappen[std::clamp(orientatie, 1, 8) - 1];
  VipsImage* raw = nullptr;
  if (Vips().rot(beeld, &raw, stap.hoek, nullptr) != 0) return Fout("Cannot rotate image: " + VipsMelding());
  uit.reset(raw);
  if (!stap.spiegel) return Status::Ok();
  if (Vips().flip(uit.get(), &raw, VIPS_DIRECTION_HORIZONTAL, nullptr) != 0) {
    return Fout("Cannot rotate image: " + VipsMelding());
  }
  uit.reset(raw);
  return Status::Ok();
}

Status Gemeld(FoutMelder& melder, Status status, std::string_view frase) {
  if (!status.ok()) melder.Meld(FoutTekst(status, frase, true));
  return status;
}

}  // namespace

std::string VipsVersie() {
  const VipsFuncties* vips = LaadVips();
  return vips == nullptr ? "" : vips->version_string();
}

int VerkleinKwaliteit(int kwaliteit_code) {
  switch (kwaliteit_code) {
    case 1: return 80;
    case 2: return 60;
    default: return 100;
  }
}

std::string TijdelijkPad(const std::string& foto_pad) { return Vervang(foto_pad, ".jpg", "_tmp.jpg"); }

ThumbnailWerk MaakGdiThumbnail(std::string_view jpeg, const std::string& thumb_pad) {
  ThumbnailWerk werk;
  werk.fout = ToetsGeclaimdeMaat(jpeg);
  if (!werk.fout.ok()) return werk;
  JpegKop kop;
  const Status kop_status = LeesJpegKop(jpeg, kop);
  if (!kop_status.ok() || kop.IsCmyk()) {
    ThumbnailViaVips(jpeg, thumb_pad, kop_status, werk);
    return werk;
  }
  werk.fout = ToetsBeeldMaat(kop.breedte, kop.hoogte);
  if (!werk.fout.ok()) return werk;
  werk.aanmaak_regel = "Aanmaken (GDI) thumbnail " + thumb_pad + "...";
  ThumbnailViaSchaal(jpeg, kop, werk);
  return werk;
}

Status VoltooiGdiThumbnail(const ThumbnailWerk& werk, const std::string& thumb_pad, GenerationLog& log, FoutMelder& melder) {
  if (!werk.aanmaak_regel.empty()) log.SchrijfLog(werk.aanmaak_regel);
  Status status = werk.fout;
  if (status.ok()) status = Fs().WriteFile(thumb_pad, werk.jpeg);
  if (status.ok()) return status;
  log.SchrijfLog("Error: " + status.description());
  melder.Meld(FoutTekst(status, kThumbnailFrase, true));
  return Fout(status.description());
}

Status GDIMaakThumb(const std::string& foto_pad, const std::string& thumb_pad, GenerationLog& log, FoutMelder& melder) {
  std::string jpeg;
  const Status gelezen = Fs().ReadFile(foto_pad, jpeg);
  ThumbnailWerk werk = gelezen.ok() ? MaakGdiThumbnail(jpeg, thumb_pad) : ThumbnailWerk{"", gelezen, ""};
  if (gelezen.ok()) werk.fout = FotoFout(foto_pad, jpeg, werk.fout);
  return VoltooiGdiThumbnail(werk, thumb_pad, log, melder);
}

Status GDIRoteerImg(const std::string& foto_pad, std::string_view richting, bool maak_backup,
                    FoutMelder& melder) {
  const VipsAngle hoek = IsLinksom(richting) ? VIPS_ANGLE_D270 : VIPS_ANGLE_D90;
  const auto draai = [hoek](const std::string& jpeg, VipsImage* beeld, VipsBeeld& uit) {
    // A photo the camera stored turned is turned the way it is shown first,
    // so the quarter turn starts from what the user sees.
    VipsBeeld rechtop;
    if (const int orientatie = LeesExif(jpeg).orientatie; orientatie != 1) {
      if (const Status status = ZetRechtop(beeld, orientatie, rechtop); !status.ok()) return status;
      beeld = rechtop.get();
    }
    VipsImage* raw = nullptr;
    if (Vips().rot(beeld, &raw, hoek, nullptr) != 0) return Fout("Cannot rotate image: " + VipsMelding());
    uit.reset(raw);
    return Status::Ok();
  };
  return Gemeld(melder, Bewerk(foto_pad, maak_backup, draai, kGdiRoteerKwaliteit), kRoteerFrase);
}

Status GDIVerkleinImg(const std::string& foto_pad, int breedte, int hoogte, int kwaliteit_code,
                      bool maak_backup, FoutMelder& melder) {
  const auto verklein = [breedte, hoogte](const std::string& jpeg, VipsImage* beeld, VipsBeeld& uit) {
    if (breedte < 1 || hoogte < 1) {
      return Fout("Invalid size: " + std::to_string(breedte) + " x " + std::to_string(hoogte));
    }
    // Shrunk on load to no less than twice the new size, then resampled
    // with Lanczos to exactly that size; "force" may change the proportions.
    VipsBeeld geladen;
    const Status status = LaadJpeg(jpeg, KiesKrimp(Vips().image_get_width(beeld), Vips().image_get_height(beeld),
                                                   2 * breedte, 2 * hoogte), geladen);
    if (!status.ok()) return status;
    VipsImage* raw = nullptr;
    if (Vips().thumbnail_image(geladen.get(), &raw, breedte, "height", hoogte, "size", VIPS_SIZE_FORCE, "no_rotate",
                             TRUE, nullptr) != 0) {
      return Fout("Cannot scale image: " + VipsMelding());
    }
    uit.reset(raw);
    return Status::Ok();
  };
  return Gemeld(melder, Bewerk(foto_pad, maak_backup, verklein, VerkleinKwaliteit(kwaliteit_code)),
                kVerkleinFrase);
}

Status HeifNaarJpeg(std::string_view heif, bool zonder_locatie, std::string& jpeg) {
  Status status = StartVips();
  if (!status.ok()) return status;
  const auto lock = AlleenMetVips();
  VipsImage* raw = nullptr;
  if (Vips().heifload_buffer(const_cast<char*>(heif.data()), heif.size(), &raw, nullptr) != 0) {
    return Fout("Cannot load image: " + VipsMelding());
  }
  VipsBeeld beeld(raw);
  status = ToetsBeeldMaat(Vips().image_get_width(beeld.get()), Vips().image_get_height(beeld.get()));
  if (status.ok()) status = NaarSrgb(beeld);
  std::string pixels;
  if (status.ok()) status = Encode(beeld.get(), kHeifJpegKwaliteit, pixels);
  if (!status.ok()) return status;
  const void* blok = nullptr;
  std::size_t grootte = 0;
  std::string met_exif;
  const ExifWijziging wijziging{true, Vips().image_get_width(beeld.get()), Vips().image_get_height(beeld.get()),
                                zonder_locatie};
  if (Vips().image_get_blob(beeld.get(), VIPS_META_EXIF_NAME, &blok, &grootte) == 0 &&
      VoegExifToe(pixels, std::string_view(static_cast<const char*>(blok), grootte), wijziging, met_exif).ok()) {
    pixels = std::move(met_exif);
  }
  jpeg = std::move(pixels);
  return Status::Ok();
}

}  // namespace kiekbord
