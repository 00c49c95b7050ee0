#include "images/web_copies.h"

#include <malloc.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdint>
#include <future>
#include <map>
#include <memory>
#include <mutex>
#include <set>

#include "base/file_system.h"
#include "base/keyed_text_file.h"
#include "base/line_table.h"
#include "base/status.h"
#include "base/text.h"
#include "base/text_helpers.h"
#include "images/lanczos_shrink.h"
#include "images/smooth_library.h"
#include "images/thumbnail_work.h"
#include "images/thumbnails.h"
#include "images/turbo_jpeg.h"
#include "images/worker_pool.h"

namespace kiekbord {
namespace {

// What the photos being made at once may take; a 24-megapixel photo takes
// some 40 MB (its file, the plane decoded at half size and two copies).
constexpr std::int64_t kGeheugenBudget = std::int64_t{192} << 20;
constexpr std::int64_t kGrootGeheugen = std::int64_t{64} << 20;
// The start of a photo read for its frame header.
constexpr std::int64_t kKopGrens = 256 << 10;
// Four lines a photo, for the largest gallery the run takes in.
constexpr int kLijstCapaciteit = 4096;

// One heap for all workers, as the thumbnail run keeps it.
void EenHeap() {
  static std::once_flag once;
  std::call_once(once, [] { ::mallopt(M_ARENA_MAX, 1); });
}

// An RGB plane, three bytes a pixel, rows packed.
struct Beeld {
  std::vector<std::uint8_t> rgb;
  int breedte = 0;
  int hoogte = 0;
};

// Scales `bron` to exactly `maat` with a Lanczos filter of `lobes` lobes.
Beeld Verklein(const Beeld& bron, FotoMaat maat, int lobes) {
  return {VerkleinLanczos(bron.rgb, bron.breedte, bron.hoogte, {maat.breedte, maat.hoogte}, lobes), maat.breedte,
          maat.hoogte};
}

// The copies are sharpened after scaling, which makes up for the softer
// two-lobe filter; the thumbnail keeps the thumbnail run's three lobes.
constexpr int kKopieLobes = 2;
constexpr int kThumbnailLobes = 3;

// Light sharpening against the softness scaling leaves: each pixel moves
// away from the mean of its four neighbours by a tenth of the difference.
Beeld Verscherpt(const Beeld& bron) {
  Beeld uit = bron;
  const int rij = bron.breedte * 3;
  for (int y = 1; y + 1 < bron.hoogte; ++y) {
    for (int x = 3; x + 3 < rij; ++x) {
      const std::size_t i = static_cast<std::size_t>(y) * rij + x;
      const int midden = bron.rgb[i];
      const int buren = bron.rgb[i - 3] + bron.rgb[i + 3] + bron.rgb[i - rij] + bron.rgb[i + rij];
      const int waarde = midden + ((4 * midden - buren) * 26) / 256;
      uit.rgb[i] = static_cast<std::uint8_t>(std::clamp(waarde, 0, 255));
    }
  }
  return uit;
}

// One file to make from a photo.
struct Doel {
  std::string pad;
  FotoMaat maat;
  bool scherp = false;
};

// The files of photo `naam` in `dir`, of breedte x hoogte, largest first.
// Only the name is renamed: a folder whose name holds ".jpg" stays as it is.
std::vector<Doel> DoelenVan(const std::string& dir, const std::string& naam, int breedte, int hoogte) {
  std::vector<Doel> doelen;
  for (const int lange_zijde : kWebMaten) {
    if (const auto maat = WebKopieMaat(breedte, hoogte, lange_zijde)) {
      doelen.push_back({dir + WebKopiePad(naam, lange_zijde), *maat, true});
    }
  }
  doelen.push_back({dir + DubbeleThumbnailPad(naam), DubbeleThumbnailMaat(breedte, hoogte), false});
  return doelen;
}

// What making a photo's copies gave: the files to write, or the failure,
// and the thumbnail when one was asked for.
struct WebWerk {
  Status fout;
  FotoMaat maat;
  std::vector<std::pair<std::string, std::string>> bestanden;  // path, JPEG bytes
  std::string thumbnail;
};

// The thumbnail of the thumbnail run from `tweevoud`, the plane of the
// double-density thumbnail (unsharpened): like the thumbnail run it scales
// a plane of about twice the size with Lanczos. Empty when that plane is
// smaller than the thumbnail (slivers).
std::string ThumbnailUit(const Beeld& tweevoud, const JpegKop& kop) {
  const ThumbnailMaat maat = BerekenThumbnailMaat(kop.breedte, kop.hoogte);
  if (kop.IsCmyk() || tweevoud.breedte < maat.breedte || tweevoud.hoogte < maat.hoogte) return {};
  Beeld klein = Verklein(tweevoud, {maat.breedte, maat.hoogte}, kThumbnailLobes);
  std::string bytes;
  if (!CodeerJpeg(PixelVlak{klein.rgb.data(), klein.breedte, klein.hoogte, klein.breedte * 3,
                            PixelVolgorde::kRgb, false},
                  kGdiThumbnailKwaliteit, bytes)
           .ok()) {
    return {};
  }
  return bytes;
}

// Decodes the photo once, at the smallest scale that still holds its largest
// copy, and makes each copy from the one before it (the sharpening goes only
// into the file).
WebWerk MaakUitJpeg(std::string_view jpeg, const std::string& dir, const std::string& naam, bool met_thumbnail) {
  WebWerk werk;
  JpegKop kop;
  werk.fout = LeesJpegKop(jpeg, kop);
  if (werk.fout.ok()) werk.fout = ToetsBeeldMaat(kop.breedte, kop.hoogte);
  if (!werk.fout.ok()) return werk;
  EenHeap();
  werk.maat = {kop.breedte, kop.hoogte};
  const std::vector<Doel> doelen = DoelenVan(dir, naam, kop.breedte, kop.hoogte);
  const Schaal schaal = KiesSchaal(kop.breedte, kop.hoogte, doelen.front().maat.breedte, doelen.front().maat.hoogte);
  Beeld huidig{{}, schaal.Pas(kop.breedte), schaal.Pas(kop.hoogte)};
  huidig.rgb.resize(static_cast<std::size_t>(huidig.breedte) * huidig.hoogte * 3);
  werk.fout = DecodeerJpeg(jpeg, PixelVlak{huidig.rgb.data(), huidig.breedte, huidig.hoogte, huidig.breedte * 3,
                                           PixelVolgorde::kRgb, false});
  for (const Doel& doel : doelen) {
    if (!werk.fout.ok()) return werk;
    Beeld klein = Verklein(huidig, doel.maat, kKopieLobes);
    const Beeld& bron = doel.scherp ? Verscherpt(klein) : klein;
    std::string bytes;
    werk.fout = CodeerJpeg(PixelVlak{const_cast<std::uint8_t*>(bron.rgb.data()), bron.breedte, bron.hoogte,
                                     bron.breedte * 3, PixelVolgorde::kRgb, false},
                           kWebKwaliteit, bytes);
    werk.bestanden.emplace_back(doel.pad, std::move(bytes));
    huidig = std::move(klein);
  }
  if (werk.fout.ok() && met_thumbnail) werk.thumbnail = ThumbnailUit(huidig, kop);
  return werk;
}

// The make half of one photo, in the pool.
class FotoTaak {
 public:
  FotoTaak(std::string dir, std::string naam, bool met_thumbnail)
      : dir_(std::move(dir)), naam_(std::move(naam)), foto_(dir_ + naam_), met_thumbnail_(met_thumbnail) {}
  std::future<WebWerk> Resultaat() { return resultaat_.get_future(); }

  // Looks at the photo's header for the memory making its copies takes: the
  // file, the decoded plane and two copies. The photo itself is read only
  // when its turn comes, so that photos waiting for memory hold none.
  std::int64_t Lees() {
    FileInfo info;
    std::string begin;
    if (!Fs().GetFileInfo(foto_, info).ok() || !Fs().ReadFile(foto_, begin, kKopGrens).ok()) return 0;
    JpegKop kop;
    if (!LeesJpegKop(begin, kop).ok()) return info.size;
    const Schaal schaal = KiesSchaal(kop.breedte, kop.hoogte, std::min(kop.breedte, kWebMaten[0]),
                                     std::min(kop.hoogte, kWebMaten[0]));
    geheugen_ = info.size + DecodeerWerkgeheugen(kop) +
                std::int64_t{schaal.Pas(kop.breedte)} * schaal.Pas(kop.hoogte) * 3 * 2;
    return geheugen_;
  }

  void Maak() {
    try {
      WebWerk werk;
      std::string jpeg;
      const Status gelezen = Fs().ReadFile(foto_, jpeg);
      if (!gelezen.ok()) {
        werk.fout = gelezen;
      } else {
        werk = MaakUitJpeg(jpeg, dir_, naam_, met_thumbnail_);
      }
      resultaat_.set_value(std::move(werk));
    } catch (...) {
      resultaat_.set_exception(std::current_exception());
    }
    if (geheugen_ >= kGrootGeheugen) ::malloc_trim(0);
  }

 private:
  const std::string dir_;
  const std::string naam_;
  const std::string foto_;
  const bool met_thumbnail_;
  std::int64_t geheugen_ = 0;
  std::promise<WebWerk> resultaat_;
};

// A photo's line in "kb_web.txt": what its copies were made from.
struct Vermelding {
  std::string datumtijd;
  std::string grootte;
  std::string maat;  // "WxH"
};

std::string MaatTekst(FotoMaat maat) { return std::to_string(maat.breedte) + "x" + std::to_string(maat.hoogte); }

std::optional<FotoMaat> MaatUitTekst(const std::string& tekst) {
  int breedte = 0, hoogte = 0;
  if (std::sscanf(tekst.c_str(), "%dx%d", &breedte, &hoogte) != 2 || breedte <= 0 || hoogte <= 0) return std::nullopt;
  return FotoMaat{breedte, hoogte};
}

// A photo that gets copies: its name ends in exactly ".jpg", so every copy
// is named apart from it, and it is no thumbnail.
bool IsWebFoto(const std::string& naam) {
  return EndsWith(naam, ".jpg") && !EndsWith(BasisNaam(naam), "_tn");
}

// Every file a photo may have had, whatever its size then.
std::vector<std::string> AlleKopiePaden(const std::string& dir, const std::string& naam) {
  std::vector<std::string> paden;
  for (const int lange_zijde : kWebMaten) paden.push_back(dir + WebKopiePad(naam, lange_zijde));
  paden.push_back(dir + DubbeleThumbnailPad(naam));
  return paden;
}

class WebRun {
 public:
  WebRun(const std::string& foto_dir, const std::vector<std::string>& namen, const WebKopieOpties& opties,
         GenerationLog& log)
      : foto_dir_(foto_dir), opties_(opties), log_(log), lijst_pad_(foto_dir + "kb_web.txt") {
    std::set<std::string> gezien;
    for (const std::string& naam : namen) {
      if (gezien.insert(naam).second && IsWebFoto(naam)) {
        namen_.push_back(naam);
      }
    }
  }

  Status Run() {
    Status status = LeesLijst();
    if (!status.ok()) return status;
    VerwerkFotos();
    RuimOpNa();
    log_.SchrijfLog(std::to_string(gemaakt_) + " Webkopieën (opnieuw) aangemaakt.");
    status = SchrijfLijst();
    if (status.ok()) log_.SchrijfLog("Bestand " + lijst_pad_ + " geschreven.");
    return status;
  }

 private:
  Status LeesLijst() {
    if (!Fs().FileExists(lijst_pad_)) return Status::Ok();
    LineTable tabel(kLijstCapaciteit);
    const Status status = LeesRegels(lijst_pad_, tabel, false);
    if (!status.ok()) return status;
    std::string sectie;
    for (int i = 1; i <= tabel.Count(); ++i) {
      const std::string& regel = tabel.Line(i);
      if (regel.size() > 2 && regel.front() == '[' && regel.back() == ']') {
        sectie = regel.substr(1, regel.size() - 2);
        continue;
      }
      const auto is = regel.find('=');
      if (sectie.empty() || is == std::string::npos) continue;
      Vermelding& v = oud_[sectie];
      const std::string sleutel = regel.substr(0, is);
      const std::string waarde = regel.substr(is + 1);
      if (sleutel == "datumtijd") v.datumtijd = waarde;
      if (sleutel == "grootte") v.grootte = waarde;
      if (sleutel == "maat") v.maat = waarde;
    }
    return status;
  }

  // The copies are there as the photo's size asks.
  bool AllesAanwezig(const std::string& naam, const std::string& maat_tekst) const {
    const std::optional<FotoMaat> maat = MaatUitTekst(maat_tekst);
    if (!maat) return false;
    const std::vector<Doel> doelen = DoelenVan(foto_dir_, naam, maat->breedte, maat->hoogte);
    return std::all_of(doelen.begin(), doelen.end(), [](const Doel& d) { return Fs().FileExists(d.pad); });
  }

  void MaatBekend(const std::string& foto, const FileInfo& info, std::optional<FotoMaat> maat) const {
    if (opties_.maat_bekend && maat) opties_.maat_bekend(foto, info, *maat);
  }

  struct Wachtend {
    std::string naam;
    FileInfo info;
    Vermelding vermelding;
    std::future<WebWerk> werk;
  };

  void VerwerkFotos() {
    const int kernen = opties_.gelijktijdig > 0 ? opties_.gelijktijdig : WorkerPool::Cores();
    std::vector<Wachtend> wachtend;
    {
      WorkerPool pool(kernen == 1 ? 0 : kernen, kGeheugenBudget);
      for (const std::string& naam : namen_) {
        const std::string foto = foto_dir_ + naam;
        FileInfo info;
        if (!Fs().GetFileInfo(foto, info).ok()) {
          log_.SchrijfLog("Foto " + foto + " niet gevonden: geen webkopieën.");
          continue;
        }
        Vermelding nu{DatumTijdTekst(info.modified_ns), std::to_string(info.size), ""};
        const auto oud = oud_.find(naam);
        if (oud != oud_.end() && oud->second.datumtijd == nu.datumtijd && oud->second.grootte == nu.grootte &&
            AllesAanwezig(naam, oud->second.maat)) {
          MaatBekend(foto, info, MaatUitTekst(oud->second.maat));
          nieuw_.emplace_back(naam, oud->second);
          continue;
        }
        auto taak = std::make_shared<FotoTaak>(foto_dir_, naam, opties_.klare_thumbnails != nullptr);
        wachtend.push_back({naam, info, nu, taak->Resultaat()});
        pool.Submit({[taak] { return taak->Lees(); }, [taak] { taak->Maak(); }, info.size});
      }
      int gedaan = static_cast<int>(namen_.size() - wachtend.size());
      for (Wachtend& w : wachtend) {
        Voltooi(w);
        if (opties_.voortgang) opties_.voortgang(++gedaan, static_cast<int>(namen_.size()));
      }
    }
  }

  // Writes a photo's copies and deletes those its size no longer has.
  void Voltooi(Wachtend& w) {
    const std::string foto = foto_dir_ + w.naam;
    WebWerk werk;
    try {
      werk = w.werk.get();
    } catch (...) {
      werk.fout = StatusVanUitzondering();
    }
    if (werk.fout.ok()) log_.SchrijfLog("Aanmaken webkopieën " + foto + "...");
    for (const auto& [pad, bytes] : werk.bestanden) {
      if (!werk.fout.ok()) break;
      werk.fout = Fs().WriteFile(pad, bytes);
    }
    if (!werk.fout.ok()) {
      log_.SchrijfLog("Fout bij aanmaken webkopieën van " + foto + ": " + werk.fout.description());
      return;
    }
    for (const std::string& pad : AlleKopiePaden(foto_dir_, w.naam)) {
      const bool gemaakt = std::any_of(werk.bestanden.begin(), werk.bestanden.end(),
                                       [&](const auto& b) { return b.first == pad; });
      if (!gemaakt) Verwijder(pad);
    }
    if (opties_.klare_thumbnails && !werk.thumbnail.empty()) {
      opties_.klare_thumbnails->Bewaar(foto, w.info, std::move(werk.thumbnail));
    }
    w.vermelding.maat = MaatTekst(werk.maat);
    MaatBekend(foto, w.info, werk.maat);
    nieuw_.emplace_back(w.naam, w.vermelding);
    ++gemaakt_;
  }

  void Verwijder(const std::string& pad) {
    if (!Fs().FileExists(pad)) return;
    const Status status = Fs().DeleteFile(pad);
    if (!status.ok()) {
      log_.SchrijfLog("Webkopie " + pad + " kan niet worden verwijderd: " + status.description());
      return;
    }
    ++verwijderd_;
  }

  // The copies of photos that left the gallery go.
  void RuimOpNa() {
    const std::set<std::string> in_galerij(namen_.begin(), namen_.end());
    for (const auto& [naam, vermelding] : oud_) {
      if (in_galerij.contains(naam) || !IsPlainName(naam) || !IsWebFoto(naam)) continue;
      for (const std::string& pad : AlleKopiePaden(foto_dir_, naam)) Verwijder(pad);
    }
    if (verwijderd_ > 0) log_.SchrijfLog(std::to_string(verwijderd_) + " oude webkopie(ën) verwijderd.");
  }

  // The photos of the gallery whose copies are there, in gallery order.
  Status SchrijfLijst() {
    std::map<std::string, Vermelding> per_naam(nieuw_.begin(), nieuw_.end());
    LineTable tabel(kLijstCapaciteit);
    for (const std::string& naam : namen_) {
      const auto it = per_naam.find(naam);
      if (it == per_naam.end()) continue;
      tabel.Append("[" + naam + "]");
      tabel.Append("datumtijd=" + it->second.datumtijd);
      tabel.Append("grootte=" + it->second.grootte);
      tabel.Append("maat=" + it->second.maat);
    }
    return SchrijfRegels(lijst_pad_, tabel);
  }

  const std::string foto_dir_;
  std::vector<std::string> namen_;
  const WebKopieOpties& opties_;
  GenerationLog& log_;
  const std::string lijst_pad_;
  std::map<std::string, Vermelding> oud_;
  std::vector<std::pair<std::string, Vermelding>> nieuw_;
  int gemaakt_ = 0;
  int verwijderd_ = 0;
};

}  // namespace

std::optional<FotoMaat> WebKopieMaat(int breedte, int hoogte, int lange_zijde) {
  const int lang = std::max(breedte, hoogte);
  if (lang <= lange_zijde || breedte <= 0 || hoogte <= 0) return std::nullopt;
  const auto kort = [&](int zijde) {
    return std::max(1, static_cast<int>(std::lround(static_cast<double>(zijde) * lange_zijde / lang)));
  };
  return breedte >= hoogte ? FotoMaat{lange_zijde, kort(hoogte)} : FotoMaat{kort(breedte), lange_zijde};
}

FotoMaat DubbeleThumbnailMaat(int breedte, int hoogte) {
  const ThumbnailMaat maat = BerekenThumbnailMaat(breedte, hoogte, kDubbeleThumbnailGrens);
  return {maat.breedte, maat.hoogte};
}

std::string WebKopiePad(const std::string& foto_naam, int lange_zijde) {
  return Vervang(foto_naam, ".jpg", "_w" + std::to_string(lange_zijde) + ".jpg");
}

std::string DubbeleThumbnailPad(const std::string& foto_naam) { return Vervang(foto_naam, ".jpg", "_tn2.jpg"); }

bool MaakWebKopieen(const std::string& foto_dir, const std::vector<std::string>& namen,
                    const WebKopieOpties& opties, GenerationLog& log) {
  log.SchrijfLog("Start aanmaken webkopieën ...");
  return LogStapFout(log, [&] { return WebRun(foto_dir, namen, opties, log).Run(); });
}

}  // namespace kiekbord
