#include "images/thumbnails.h"

#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <ctime>
#include <deque>
#include <future>
#include <memory>
#include <mutex>
#include <new>

#include "base/file_system.h"
#include "base/keyed_text_file.h"
#include "base/line_table.h"
#include "base/status.h"
#include "base/text.h"
#include "base/generation_log.h"
#include "base/text_helpers.h"
#include "images/library_choice.h"
#include "images/photo_failures.h"
#include "images/pixel_edit.h"
#include "images/smooth_library.h"
#include "images/turbo_jpeg.h"
#include "images/worker_pool.h"

namespace kiekbord {
namespace {

// What the photos being made at once may take. With the program itself
// (some 35 MB) and what the heap keeps between photos this holds a run
// under 200 MB, even when large progressive photos, which hold all their
// coefficients while decoding, come together; more would let two of those
// run side by side and break that bound.
constexpr std::int64_t kGeheugenBudget = std::int64_t{128} << 20;
// A photo that takes this much hands its memory back when it is done.
constexpr std::int64_t kGrootGeheugen = std::int64_t{64} << 20;

// The start of a photo that is read to find its frame header; camera data
// in front of it stays well below this.
constexpr std::int64_t kKopGrens = 256 << 10;

// Buffers for reading photos, handed from photo to photo. A buffer keeps
// its memory, so a photo is read into pages already in use instead of fresh
// ones that the kernel must clear first: that clearing took some 7 % of a
// run's processor time.
class LeesBuffers {
 public:
  std::string Neem() {
    std::lock_guard lock(mutex_);
    if (vrij_.empty()) return {};
    std::string buffer = std::move(vrij_.back());
    vrij_.pop_back();
    return buffer;
  }

  void GeefTerug(std::string buffer) {
    std::lock_guard lock(mutex_);
    vrij_.push_back(std::move(buffer));
  }

 private:
  std::mutex mutex_;
  std::vector<std::string> vrij_;
};

// A buffer of `buffers` for as long as the object lives.
class GeleendBuffer {
 public:
  explicit GeleendBuffer(LeesBuffers& buffers) : buffers_(buffers), buffer_(buffers.Neem()) {}
  ~GeleendBuffer() { buffers_.GeefTerug(std::move(buffer_)); }
  GeleendBuffer(const GeleendBuffer&) = delete;
  GeleendBuffer& operator=(const GeleendBuffer&) = delete;
  std::string& operator*() { return buffer_; }

 private:
  LeesBuffers& buffers_;
  std::string buffer_;
};

// The memory making a photo's thumbnail takes, the file's bytes included,
// judged from its frame header without reading the whole photo.
std::int64_t GeschatGeheugen(ImageLibrary library, const std::string& foto, std::string& begin) {
  FileInfo info;
  if (!Fs().GetFileInfo(foto, info).ok()) return 0;
  if (!Fs().ReadFile(foto, begin, kKopGrens).ok()) return 0;
  // A header further in: the whole file then.
  if (static_cast<std::int64_t>(begin.size()) == kKopGrens && !Fs().ReadFile(foto, begin).ok()) return 0;
  JpegKop kop;
  if (!LeesJpegKop(begin, kop).ok()) return info.size;
  std::int64_t bytes = info.size + DecodeerWerkgeheugen(kop);
  // The smooth library decodes a progressive photo from a copy without the
  // scans it does not read, at most as large as the file.
  if (library == ImageLibrary::kGdiPlus && kop.progressief) bytes += info.size;
  // The pixel-buffer library decodes the whole photo.
  if (library == ImageLibrary::kIjl11) bytes += kop.Beeldpunten() * 3;
  return bytes;
}

// Counts the thumbnails made in memory so far, on any worker, and wakes the
// run's own thread at each one so it can tell the progress.
class Teller {
 public:
  void Tel() {
    {
      std::lock_guard lock(mutex_);
      ++aantal_;
    }
    gewijzigd_.notify_all();
  }

  int Aantal() {
    std::lock_guard lock(mutex_);
    return aantal_;
  }

  // Waits until more than `gezien` are counted.
  void WachtOpMeerDan(int gezien) {
    std::unique_lock lock(mutex_);
    gewijzigd_.wait(lock, [&] { return aantal_ > gezien; });
  }

 private:
  std::mutex mutex_;
  std::condition_variable gewijzigd_;
  int aantal_ = 0;
};

// The make half of one photo's thumbnail, in the pool: first a look at the
// photo's header for the memory it will take, then, once that memory is
// there, reading the photo and making the thumbnail in memory.
class FotoWerk {
 public:
  FotoWerk(ImageLibrary library, std::string foto, std::string thumb, Teller& teller, LeesBuffers& buffers,
           KlareThumbnails* klaar)
      : library_(library), foto_(std::move(foto)), thumb_(std::move(thumb)), teller_(teller), buffers_(buffers),
        klaar_(klaar) {}

  std::future<ThumbnailWerk> Resultaat() { return resultaat_.get_future(); }

  std::int64_t Geheugen() {
    try {
      GeleendBuffer begin(buffers_);
      return geheugen_ = GeschatGeheugen(library_, foto_, *begin);
    } catch (const std::bad_alloc&) {
      return 0;  // making it will run out of memory too, and say so
    }
  }

  void Maak() {
    try {
      resultaat_.set_value(MaakUitBestand());
    } catch (...) {
      resultaat_.set_exception(std::current_exception());
    }
    // The gaps a large photo leaves in the heap would otherwise add to the
    // next large one's memory.
    if (geheugen_ >= kGrootGeheugen) ::malloc_trim(0);
    teller_.Tel();
  }

 private:
  ThumbnailWerk MaakUitBestand() const {
    if (klaar_ && library_ == ImageLibrary::kGdiPlus) {
      if (std::optional<std::string> jpeg = klaar_->Neem(foto_)) {
        return ThumbnailWerk{"Aanmaken (GDI) thumbnail " + thumb_ + "...", Status::Ok(), std::move(*jpeg)};
      }
    }
    GeleendBuffer buffer(buffers_);
    std::string& jpeg = *buffer;
    // Read into one buffer of the right size instead of one grown piecemeal.
    FileInfo info;
    if (Fs().GetFileInfo(foto_, info).ok() && info.size > 0) jpeg.reserve(static_cast<std::size_t>(info.size));
    const Status gelezen = Fs().ReadFile(foto_, jpeg);
    if (!gelezen.ok()) return ThumbnailWerk{"", gelezen, ""};
    ThumbnailWerk werk =
        library_ == ImageLibrary::kGdiPlus ? MaakGdiThumbnail(jpeg, thumb_) : MaakIjlThumbnail(jpeg, thumb_);
    werk.fout = FotoFout(foto_, jpeg, werk.fout);
    return werk;
  }

  const ImageLibrary library_;
  const std::string foto_;
  const std::string thumb_;
  Teller& teller_;
  LeesBuffers& buffers_;
  KlareThumbnails* const klaar_;
  std::promise<ThumbnailWerk> resultaat_;
  std::int64_t geheugen_ = 0;
};

// Lets all workers allocate from one heap. By default glibc gives each
// thread a heap of its own and keeps each heap as large as the largest photo
// its thread ever decoded, so the process grows by one large photo per core
// (on two cores some 40 MB more at the peak for the bench corpus, at the
// same processor time).
void DeelEenHeap() {
  static std::once_flag once;
  std::call_once(once, [] { ::mallopt(M_ARENA_MAX, 1); });
}

// A photo whose thumbnail is being made.
struct Taak {
  int index = 0;
  std::string thumb;
  std::future<ThumbnailWerk> werk;
  // Set when recording the photo in the list failed: the run ends after
  // this photo's thumbnail, as it would have one by one.
  Status lijst_fout;
};

class ThumbnailRun {
 public:
  ThumbnailRun(const std::string& foto_dir, int aantal, const std::vector<std::string>& namen,
               const ThumbnailOpties& opties, ImageLibrary library, GenerationLog& log, FoutMelder& melder)
      : foto_dir_(foto_dir),
        namen_(namen.begin(), namen.begin() + std::clamp(aantal, 0, static_cast<int>(namen.size()))),
        opties_(opties),
        library_(library),
        log_(log),
        melder_(melder),
        lijst_pad_(foto_dir + "kb_tn.txt"),
        lijst_(capaciteit::kThumbnailList) {}

  Status Run() {
    Status status = LeesLijst();
    if (status.ok()) status = VerwerkFotos();
    if (!status.ok() || gestopt_) return status;
    log_.SchrijfLog(std::to_string(teller_) + " Thumbnails (opnieuw) aangemaakt.");
    status = SchrijfRegels(lijst_pad_, lijst_);
    if (!status.ok()) return status;
    log_.SchrijfLog("Bestand " + lijst_pad_ + " geschreven.");
    return status;
  }

 private:
  Status LeesLijst() {
    if (!Fs().FileExists(lijst_pad_)) return Status::Ok();
    log_.SchrijfLog("(Bestand " + lijst_pad_ + " gedetecteerd.)");
    const Status status = LeesRegels(lijst_pad_, lijst_, false);
    if (!status.ok()) return status;
    log_.SchrijfLog("Bestand " + lijst_pad_ + " inlezen.");
    return status;
  }

  int Gelijktijdig() const {
    return opties_.gelijktijdig > 0 ? opties_.gelijktijdig : WorkerPool::Cores();
  }

  // Decides photo by photo, in order, whether its thumbnail is made; the
  // making runs ahead on the workers while the finishing (log, file, list)
  // follows in order.
  Status VerwerkFotos() {
    const int gelijktijdig = Gelijktijdig();
    if (gelijktijdig > 1) DeelEenHeap();
    // One at a time runs on this thread. Otherwise every photo is looked at
    // first and all thumbnails to make are handed to the workers at once, so
    // that while a large photo waits for memory, or runs alone, the other
    // cores find smaller ones to make; a photo takes no memory before it is
    // made, and a made one only its thumbnail until it is written.
    WorkerPool pool(gelijktijdig == 1 ? 0 : gelijktijdig, kGeheugenBudget);
    const std::size_t venster = gelijktijdig == 1 ? 1 : namen_.size();

    for (int i = 0; i < static_cast<int>(namen_.size()); ++i) {
      bool stop = false;
      Status status = BeslisFoto(i, pool, stop);
      while (status.ok() && wachtend_.size() >= venster) status = VoltooiOudste();
      if (!status.ok()) return status;
      MeldVoortgang();
      if (stop) break;
      if (Gestopt()) return Status::Ok();
    }
    while (!wachtend_.empty()) {
      const Status status = VoltooiOudste();
      if (!status.ok()) return status;
      MeldVoortgang();
      // Photos the workers have not started are dropped with the pool.
      if (Gestopt()) return Status::Ok();
    }
    return Status::Ok();
  }

  bool Gestopt() {
    gestopt_ = gestopt_ || (opties_.afbreken && opties_.afbreken());
    return gestopt_;
  }

  // Steps of one photo up to the making of its thumbnail. `stop` is set
  // when no further photo may be started.
  Status BeslisFoto(int i, WorkerPool& pool, bool& stop) {
    const std::string foto = foto_dir_ + namen_[static_cast<std::size_t>(i)];
    const std::string basis = BasisNaam(foto);
    if (EndsWith(basis, "_tn") || Extensie(foto) != ".jpg") {
      ++zonder_thumbnail_;
      return Status::Ok();
    }
    const std::string thumb = ThumbnailPad(foto);

    // An earlier photo still being made may write the very files this one
    // looks at (the same photo twice in the gallery, say): finish it first.
    Status status = VoltooiSchrijversVan(foto, thumb);
    if (!status.ok()) return status;
    FileInfo info;
    status = Fs().GetFileInfo(foto, info);
    if (!status.ok()) {
      // One by one, every earlier photo would be done before this failure.
      const Status eerder = VoltooiAlle();
      return eerder.ok() ? status : eerder;
    }
    const std::string tijd = DatumTijdTekst(info.modified_ns);
    const std::string grootte = std::to_string(info.size);
    const bool ongewijzigd = LeesWaarde(lijst_, basis, "grootte", "xx") == grootte &&
                             LeesWaarde(lijst_, basis, "datumtijd", "xx") == tijd &&
                             Fs().FileExists(thumb);
    if (ongewijzigd) {
      ++zonder_thumbnail_;
      return Status::Ok();
    }

    Taak taak;
    taak.index = i;
    taak.thumb = thumb;
    auto werk = std::make_shared<FotoWerk>(library_, foto, thumb, gemaakt_, buffers_, opties_.klare_thumbnails);
    taak.werk = werk->Resultaat();
    // The compressed size stands for the cost of decoding.
    pool.Submit({[werk] { return werk->Geheugen(); }, [werk] { werk->Maak(); }, info.size});
    // The list is brought up to date now, as the photo's thumbnail will be
    // made before the next photo is looked at; should the making fail, the
    // run ends and the list is never written.
    taak.lijst_fout = SchrijfWaarde(lijst_, basis, "datumtijd", tijd);
    if (taak.lijst_fout.ok()) taak.lijst_fout = SchrijfWaarde(lijst_, basis, "grootte", grootte);
    stop = !taak.lijst_fout.ok();
    ++teller_;
    wachtend_.push_back(std::move(taak));
    return Status::Ok();
  }

  Status VoltooiSchrijversVan(const std::string& foto, const std::string& thumb) {
    const auto schrijft = [&](const Taak& taak) { return taak.thumb == foto || taak.thumb == thumb; };
    const auto laatste = std::find_if(wachtend_.rbegin(), wachtend_.rend(), schrijft);
    for (auto n = std::distance(laatste, wachtend_.rend()); n > 0; --n) {
      const Status status = VoltooiOudste();
      if (!status.ok()) return status;
    }
    return Status::Ok();
  }

  Status VoltooiAlle() {
    while (!wachtend_.empty()) {
      const Status status = VoltooiOudste();
      if (!status.ok()) return status;
    }
    return Status::Ok();
  }

  // Finishes the oldest photo being made: its log lines, its file, its
  // failure.
  Status VoltooiOudste() {
    Taak taak = std::move(wachtend_.front());
    wachtend_.pop_front();
    // Tell the progress of the photos made meanwhile, in whatever order.
    while (taak.werk.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
      gemaakt_.WachtOpMeerDan(gemaakt_gemeld_);
      MeldVoortgang();
    }
    const ThumbnailWerk werk = Ophalen(taak.werk);
    if (library_ == ImageLibrary::kGdiPlus) {
      const Status status = VoltooiGdiThumbnail(werk, taak.thumb, log_, melder_);
      if (!status.ok()) return status;
    } else {
      // The pixel-buffer library reports its own failure and lets the run
      // go on; the photo stays recorded in the list.
      static_cast<void>(VoltooiIjlThumbnail(werk, taak.thumb, log_, melder_));
    }
    return taak.lijst_fout;
  }

  static ThumbnailWerk Ophalen(std::future<ThumbnailWerk>& werk) {
    try {
      return werk.get();
    } catch (...) {
      return ThumbnailWerk{"", StatusVanUitzondering(), ""};
    }
  }

  // Tells how many photos are done: those that need no thumbnail and those
  // whose thumbnail is made.
  void MeldVoortgang() {
    gemaakt_gemeld_ = gemaakt_.Aantal();
    const int gedaan = zonder_thumbnail_ + gemaakt_gemeld_;
    if (!opties_.voortgang || gedaan <= gemeld_) return;
    gemeld_ = gedaan;
    opties_.voortgang(gedaan, static_cast<int>(namen_.size()));
  }

  const std::string foto_dir_;
  const std::vector<std::string> namen_;
  const ThumbnailOpties& opties_;
  const ImageLibrary library_;
  GenerationLog& log_;
  FoutMelder& melder_;
  const std::string lijst_pad_;
  LineTable lijst_;
  // Outlives the pool, whose workers borrow from it.
  LeesBuffers buffers_;
  std::deque<Taak> wachtend_;
  std::int32_t teller_ = 0;
  Teller gemaakt_;
  int gemaakt_gemeld_ = 0;
  int zonder_thumbnail_ = 0;
  int gemeld_ = 0;
  bool gestopt_ = false;
};

}  // namespace

std::string ThumbnailPad(const std::string& foto_pad) { return Vervang(foto_pad, ".jpg", "_tn.jpg"); }

std::string BasisNaam(const std::string& foto_pad) {
  const auto slash = foto_pad.rfind('/');
  const std::string naam = slash == std::string::npos ? foto_pad : foto_pad.substr(slash + 1);
  return Lower(naam.substr(0, naam.find('.')));
}

std::string Extensie(const std::string& foto_pad) {
  const auto dot = foto_pad.rfind('.');
  return dot == std::string::npos ? "" : Lower(foto_pad.substr(dot));
}

std::string DatumTijdTekst(std::int64_t modified_ns) {
  const std::time_t seconds = static_cast<std::time_t>(modified_ns / 1000000000 -
                                                       (modified_ns % 1000000000 < 0 ? 1 : 0));
  std::tm local{};
  if (::localtime_r(&seconds, &local) == nullptr) return "";
  char text[64];
  std::snprintf(text, sizeof text, "%d-%d-%d %d:%02d:%02d", local.tm_mday, local.tm_mon + 1,
                local.tm_year + 1900, local.tm_hour, local.tm_min, local.tm_sec);
  return text;
}

bool MaakThumbnails(const std::string& foto_dir, int aantal, const std::vector<std::string>& namen,
                    const ThumbnailOpties& opties, GenerationLog& log, FoutMelder& melder) {
  log.SchrijfLog("Start aanmaken thumbnails ...");
  const ImageLibrary library = KiesThumbnailBibliotheek(opties.program_dir, log);
  return LogStapFout(log, [&] { return ThumbnailRun(foto_dir, aantal, namen, opties, library, log, melder).Run(); });
}

}  // namespace kiekbord
