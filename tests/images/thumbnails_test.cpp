#include "images/thumbnails.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <mutex>

#include "base/file_system.h"
#include "base/text_helpers.h"
#include "images/library_choice.h"
#include "images/photo_backup.h"
#include "images/smooth_library.h"
#include "images/web_copies.h"
#include "tests/images/image_test_support.h"
#include "tests/support/fault_fs.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using ::testing::Contains;
using Regels = std::vector<std::string>;
using test::FoutenSchijf;

std::int64_t Tijd(int jaar, unsigned maand, unsigned dag, int uur = 9, int minuut = 12, int seconde = 3) {
  using namespace std::chrono;
  const auto tijd = sys_days{year{jaar} / maand / dag} + hours{uur} + minutes{minuut} + seconds{seconde};
  return duration_cast<nanoseconds>(tijd.time_since_epoch()).count();
}

const std::int64_t kAugustus = Tijd(2026, 8, 3);

// The "datumtijd" texts in these tests are those of UTC; no other test of
// this program depends on the zone.
void Utc() {
  ::setenv("TZ", "UTC", 1);
  ::tzset();
}

TEST(ThumbnailNamen, PathBaseNameExtensionAndDateTimeText) {
  const std::map<std::string, std::function<std::string(const std::string&)>> functies = {
      {"ThumbnailPad", ThumbnailPad}, {"BasisNaam", BasisNaam}, {"Extensie", Extensie}, {"TijdelijkPad", TijdelijkPad},
      {"BackupPad", BackupPad},
      {"VerkleinKwaliteit", [](const std::string& code) { return std::to_string(VerkleinKwaliteit(std::stoi(code))); }},
      {"DatumTijdTekst", [](const std::string& tijd) { return DatumTijdTekst(std::stoll(tijd)); }}};
  Utc();
  for (const auto& rij : test::Tabel("images/thumbnail_namen")) EXPECT_EQ(functies.at(rij[0])(rij[1]), rij[2]) << rij[1];
}

Regels Namen(int aantal) {
  Regels namen;
  for (int i = 1; i <= aantal; ++i) namen.push_back("p" + std::to_string(1000 + i) + ".jpg");
  return namen;
}

const std::string kGelezen = "(Bestand @kb_tn.txt gedetecteerd.)";
const std::string kInlezen = "Bestand @kb_tn.txt inlezen.";
const std::string kGeschreven = "Bestand @kb_tn.txt geschreven.";
std::string Aanmaken(const std::string& thumb, const char* bibliotheek = "GDI") {
  return std::string("Aanmaken (") + bibliotheek + ") thumbnail @" + thumb + "...";
}
std::string Aantal(int n) { return std::to_string(n) + " Thumbnails (opnieuw) aangemaakt."; }
std::string Sectie(const std::string& naam, const std::string& tijd, std::size_t grootte) {
  return "[" + naam + "]\r\ndatumtijd=" + tijd + "\r\ngrootte=" + std::to_string(grootte) + "\r\n";
}

class ThumbnailRun : public ::testing::Test {
 protected:
  ThumbnailRun() {
    Utc();
    test::WriteBytes(marker_ / "GDIplus.txt", "");
  }

  std::string Dir() const { return fotos_.path(); }
  std::string Lijst() const { return Dir() + "kb_tn.txt"; }

  // A photo in the folder, or at a full path.
  void Foto(const std::string& naam, const std::string& jpeg, std::int64_t tijd = kAugustus) {
    const std::string pad = naam.starts_with("/") ? naam : fotos_ / naam;
    test::WriteBytes(pad, jpeg);
    ASSERT_TRUE(Fs().SetModificationTime(pad, tijd).ok());
  }

  // One run in `dir`; true when it failed. The log's lines after the
  // opening ones go to staart_, the messages to meldingen_, with the folder
  // as "@".
  bool Run(const Regels& namen, bool gdi = true, int gelijktijdig = 0, const std::string& dir = "") {
    voortgang_.clear();
    meldingen_.meldingen.clear();
    const test::LogOpname log(marker_ / "run.log");
    const ThumbnailOpties opties{gdi ? marker_.path() : zonder_.path(), gelijktijdig,
                                 [this](int gedaan, int totaal) { voortgang_.emplace_back(gedaan, totaal); }, afbreken_};
    const std::string map = dir.empty() ? Dir() : dir;
    const bool fout = MaakThumbnails(map, static_cast<int>(namen.size()), namen, opties, log.log(), meldingen_);
    regels_ = log.regels();
    const auto bibliotheek = std::find_if(regels_.begin(), regels_.end(),
                                          [](const std::string& r) { return r.starts_with("Imagelibrary"); });
    staart_.clear();
    for (auto it = bibliotheek == regels_.end() ? bibliotheek : bibliotheek + 1; it != regels_.end(); ++it) {
      staart_.push_back(Vervang(*it, map, "@"));
    }
    for (std::string& melding : meldingen_.meldingen) melding = Vervang(melding, map, "@");
    return fout;
  }

  test::TempDir fotos_, marker_, zonder_;
  test::MeldingOpname meldingen_;
  Regels regels_, staart_;
  std::vector<std::pair<int, int>> voortgang_;
  std::function<bool()> afbreken_;
};

// Thumbnails and other extensions are passed over (they need not even
// exist), and a photo named twice is made once. Later runs make only missing
// thumbnails and those of changed photos, and keep the list's other sections.
TEST_F(ThumbnailRun, RunsMakeMissingAndChangedThumbnailsAndKeepTheList) {
  const std::string a = test::EffenJpeg(400, 300);
  const std::string b = test::EffenJpeg(300, 400, {1, 2, 3}, {.progressief = true});
  Foto("a.jpg", a);
  Foto("b.jpg", b, Tijd(2026, 11, 15, 17, 40, 45));
  Foto("abc_tn.jpg", a);
  Foto("x.jpeg", a);
  const Regels namen = {"a.jpg", "abc_tn.jpg", "x.jpeg", "weg_tn.jpg", "geen", "b.jpg", "y.png", "a.jpg"};
  EXPECT_FALSE(Run(namen));
  EXPECT_EQ(Regels(regels_.begin(), regels_.begin() + 4),
            Regels({"Start aanmaken thumbnails ...", "(Windows " + BepaalOsNaam() + " gedetecteerd.)",
                    "(Bestand GDIplus.txt gedetecteerd.)", "Imagelibrary GDIplus wordt gebruikt."}));
  EXPECT_EQ(staart_, Regels({Aanmaken("a_tn.jpg"), Aanmaken("b_tn.jpg"), Aantal(2), kGeschreven}));
  EXPECT_EQ(test::ReadBytes(Lijst()),
            Sectie("a", "3-8-2026 9:12:03", a.size()) + Sectie("b", "15-11-2026 17:40:45", b.size()));
  EXPECT_EQ(test::BestandenIn(Dir()), Regels({"a.jpg", "a_tn.jpg", "abc_tn.jpg", "b.jpg", "b_tn.jpg", "kb_tn.txt", "x.jpeg"}));
  // Progress only goes up, to the end; side by side two steps may be told as one.
  EXPECT_TRUE(std::is_sorted(voortgang_.begin(), voortgang_.end()));
  EXPECT_EQ(voortgang_.back(), std::pair(8, 8));
  EXPECT_TRUE(meldingen_.meldingen.empty());

  const std::string oud = Sectie("oud", "1-1-2001 0:00:00", 1);
  test::WriteBytes(Lijst(), oud + test::ReadBytes(Lijst()));
  // A thumbnail replaced by a marker: a rebuilt one would show.
  test::WriteBytes(fotos_ / "a_tn.jpg", "oud");
  ASSERT_TRUE(Fs().DeleteFile(fotos_ / "b_tn.jpg").ok());
  EXPECT_FALSE(Run(namen));
  EXPECT_EQ(staart_, Regels({kGelezen, kInlezen, Aanmaken("b_tn.jpg"), Aantal(1), kGeschreven}));
  EXPECT_EQ(test::ReadBytes(fotos_ / "a_tn.jpg"), "oud");
  EXPECT_THAT(test::ReadBytes(Lijst()), ::testing::StartsWith(oud + "[a]"));
  // A new time with the same size is a change.
  ASSERT_TRUE(Fs().SetModificationTime(fotos_ / "b.jpg", Tijd(2027, 1, 2, 3, 4, 5)).ok());
  EXPECT_FALSE(Run(namen));
  EXPECT_EQ(staart_, Regels({kGelezen, kInlezen, Aanmaken("b_tn.jpg"), Aantal(1), kGeschreven}));
  EXPECT_THAT(test::ReadBytes(Lijst()), ::testing::EndsWith(Sectie("b", "2-1-2027 3:04:05", b.size())));
}

TEST_F(ThumbnailRun, AStopKeepsTheThumbnailsMadeAndLeavesTheListAlone) {
  for (const char* naam : {"a.jpg", "b.jpg", "c.jpg"}) Foto(naam, test::EffenJpeg(40, 30));
  int gevraagd = 0;
  afbreken_ = [&gevraagd] { return ++gevraagd > 1; };
  EXPECT_FALSE(Run({"a.jpg", "b.jpg", "c.jpg"}, true, 1));
  EXPECT_EQ(staart_, Regels({Aanmaken("a_tn.jpg"), Aanmaken("b_tn.jpg")}));
  EXPECT_EQ(test::BestandenIn(Dir()), Regels({"a.jpg", "a_tn.jpg", "b.jpg", "b_tn.jpg", "c.jpg"}));
}

// Web-sized copies come from each photo once and follow the gallery: none
// on a second run, a changed photo's made again, those of a photo that left
// the gallery deleted.
TEST_F(ThumbnailRun, WebCopiesAreMadeOnceAndFollowTheGallery) {
  Foto("a.jpg", test::EffenJpeg(2000, 1000));
  Foto("b.jpg", test::EffenJpeg(600, 900));
  const auto web = [&](const Regels& namen) {
    const test::LogOpname log(marker_ / "web.log");
    EXPECT_FALSE(MaakWebKopieen(Dir(), namen, {}, log.log()));
    Regels regels;
    for (const std::string& regel : log.regels()) regels.push_back(Vervang(regel, Dir(), "@"));
    return regels;
  };
  const std::string start = "Start aanmaken webkopieën ...", lijst = "Bestand @kb_web.txt geschreven.";
  EXPECT_EQ(web({"a.jpg", "b.jpg", "a.jpg"}), Regels({start, "Aanmaken webkopieën @a.jpg...",
                                                 "Aanmaken webkopieën @b.jpg...",
                                                 "2 Webkopieën (opnieuw) aangemaakt.", lijst}));
  const auto maat = [&](const std::string& naam) {
    const auto m = PaginaMaat(fotos_ / naam);
    return m ? std::to_string(m->breedte) + "x" + std::to_string(m->hoogte) : "";
  };
  EXPECT_EQ(Regels({maat("a_w1600.jpg"), maat("a_w800.jpg"), maat("a_tn2.jpg"), maat("b_w800.jpg"), maat("b_tn2.jpg")}),
            Regels({"1600x800", "800x400", "286x143", "533x800", "200x300"}));
  EXPECT_EQ(web({"a.jpg", "b.jpg"}), Regels({start, "0 Webkopieën (opnieuw) aangemaakt.", lijst}));
  ASSERT_TRUE(Fs().SetModificationTime(fotos_ / "b.jpg", Tijd(2027, 1, 2, 3, 4, 5)).ok());
  EXPECT_EQ(web({"b.jpg"}), Regels({start, "Aanmaken webkopieën @b.jpg...", "3 oude webkopie(ën) verwijderd.",
                                    "1 Webkopieën (opnieuw) aangemaakt.", lijst}));
  EXPECT_EQ(test::BestandenIn(Dir()), Regels({"a.jpg", "b.jpg", "b_tn2.jpg", "b_w800.jpg", "kb_web.txt"}));
}

TEST_F(ThumbnailRun, FailuresEndTheRunOrAreToldAndPassedOver) {
  for (const auto& rij : test::Tabel("images/thumbnail_storingen")) {
    SCOPED_TRACE(rij.back());
    const test::TempDir map;
    for (const char* naam : {"a.jpg", "b.jpg", "c.jpg"}) test::WriteBytes(map / naam, test::EffenJpeg(40, 30));
    rij[1] == "weg" ? static_cast<void>(Fs().DeleteFile(map / "b.jpg")) : test::WriteBytes(map / "b.jpg", test::MaakFoto(rij[1]));
    test::WriteBytes(map / "kb_tn.txt", "");
    FoutenSchijf schijf;
    schijf.Faal(rij[2] == "schrijven" ? FoutenSchijf::kSchrijven : rij[2] == "lezen" ? FoutenSchijf::kLezen : 0u, rij[3],
                std::stoi(rij[4]));
    const ScopedFileSystem scoped(schijf);
    const bool mislukt = rij.back() != kGeschreven;
    EXPECT_EQ(Run({"a.jpg", "b.jpg", "c.jpg"}, rij[0] == "GDI", 0, map.path()), mislukt);
    EXPECT_EQ(staart_, Regels(rij.begin() + 6, rij.end()));
    EXPECT_EQ(meldingen_.meldingen.empty() ? "" : meldingen_.meldingen.front(), rij[5]);
    EXPECT_EQ(Fs().FileExists(map / "c_tn.jpg"), std::ranges::count(rij, Aanmaken("c_tn.jpg", rij[0].c_str())) == 1);
    if (mislukt) {
      EXPECT_EQ(test::ReadBytes(map / "kb_tn.txt"), "") << "the list is not written after a failure";
    }
  }
}

// Photos made side by side give the same log, result, messages and files as
// one by one, also when a photo fails, and photos sharing a base name
// overwrite each other's entry: both are made again every run.
TEST_F(ThumbnailRun, OnAllCoresTheSameLogAndFilesAsOneByOne) {
  const test::TempDir kopie;
  for (const auto& rij : test::Tabel("images/alle_kernen")) {
    const std::string jpeg = test::MaakFoto(rij[1]);
    Foto(rij[0], jpeg, Tijd(2026, 8, std::stoi(rij[2])));
    Foto(kopie / rij[0], jpeg, Tijd(2026, 8, std::stoi(rij[2])));
  }
  const auto vergelijk = [&](const Regels& namen, bool gdi) {
    const auto een_voor_een = std::tuple{Run(namen, gdi, 1), staart_, meldingen_.meldingen};
    EXPECT_EQ((std::tuple{Run(namen, gdi, 4, kopie.path()), staart_, meldingen_.meldingen}), een_voor_een);
    EXPECT_EQ(test::InhoudVan(kopie.path()), test::InhoudVan(Dir()));
  };
  Regels namen = {"f1.jpg", "zee.1.jpg", "f2.jpg", "f2.jpg", "f3.jpg", "abc_tn.jpg", "f8.jpg",
                  "zee.2.jpg", "x.jpeg", "f9.jpg", "f4.jpg", "f1.jpg", "f5.jpg"};
  vergelijk(namen, true);
  EXPECT_FALSE(Fs().FileExists(kopie / "f4_tn.jpg")) << "nothing after the failing photo is made";
  vergelijk(namen, false);
  namen.erase(namen.begin() + 9);
  vergelijk(namen, true);
  // Next run: one thumbnail gone and one photo touched.
  for (const std::string& dir : {Dir(), kopie.path()}) {
    ASSERT_TRUE(Fs().DeleteFile(dir + "f3_tn.jpg").ok());
    ASSERT_TRUE(Fs().SetModificationTime(dir + "f5.jpg", Tijd(2027, 1, 1)).ok());
  }
  vergelijk(namen, true);
  EXPECT_THAT(staart_, Contains(Aantal(4)));
  const std::size_t zee2 = test::MaakFoto("300x200,grijs").size();
  EXPECT_THAT(test::ReadBytes(Lijst()), ::testing::HasSubstr(Sectie("zee", "7-8-2026 9:12:03", zee2)));
}

// The process's open file descriptors, the one that lists them included.
int OpenDescriptors() {
  std::filesystem::directory_iterator entries("/proc/self/fd");
  return static_cast<int>(std::distance(begin(entries), end(entries)));
}

// The list holds at most 333 photos. A run leaves no file open, and holds
// few at once.
TEST_F(ThumbnailRun, ListHoldsAtMost333PhotosAndFewFilesAreOpenAtOnce) {
  const std::string klein = test::EffenJpeg(16, 16);
  for (const std::string& naam : Namen(334)) Foto(naam, klein);
  // libvips keeps descriptors of its own from its start on.
  ASSERT_FALSE(Run(Namen(1), true, 4));
  const int voor = OpenDescriptors();
  // The most descriptors open at any read or write, on any thread.
  std::mutex mutex;
  int hoogste = 0;
  FoutenSchijf teller;
  teller.bij_aanroep = [&](FoutenSchijf::Soort soort, const std::string&) {
    const std::lock_guard lock(mutex);
    if ((soort & (FoutenSchijf::kLezen | FoutenSchijf::kSchrijven)) != 0) hoogste = std::max(hoogste, OpenDescriptors());
  };
  {
    const ScopedFileSystem scoped(teller);
    EXPECT_FALSE(Run(Namen(333), true, 4));
  }
  EXPECT_EQ(staart_.end()[-2], Aantal(332)) << "the first was made before";
  EXPECT_EQ(OpenDescriptors(), voor);
  EXPECT_GT(hoogste, voor) << "the log is open during the run";
  // `voor` counts its own listing; during the run come the log and at most
  // one descriptor, a file or a listing, on each of the four workers and on
  // this thread.
  EXPECT_LE(hoogste, voor + 5);

  ASSERT_TRUE(Fs().DeleteFile(Lijst()).ok());
  EXPECT_TRUE(Run(Namen(334)));
  EXPECT_EQ(staart_.size(), 335u);
  EXPECT_EQ(staart_.end()[-2], Aanmaken("p1334_tn.jpg"));
  EXPECT_EQ(staart_.back(), "Error: Subscript out of range");
  EXPECT_FALSE(Fs().FileExists(Lijst())) << "the list is not written after a failure";
  EXPECT_TRUE(Fs().FileExists(fotos_ / "p1334_tn.jpg")) << "thumbnails made stay";
}

}  // namespace
}  // namespace kiekbord
