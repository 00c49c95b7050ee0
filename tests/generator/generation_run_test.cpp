#include "generator/generation_run.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "app/program_info.h"
#include "gallery/file_system.h"
#include "gallery/text.h"
#include "generator/text_helpers.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using Lines = std::vector<std::string>;

const char* const kAllTemplates[] = {"kbtitel.html", "kbovz.html", "kb.css",
                                     "kbfoto1.html", "kbfoto2.html", "kbfoto3.html",
                                     "kbfoto1m.html", "kbfoto2m.html", "kbfoto3m.html",
                                     "kbfoto1a.html", "kbfoto2a.html", "kbfoto3a.html"};

Lines SplitLog(const std::string& text) {
  Lines lines;
  std::size_t pos = 0;
  while (pos < text.size()) {
    const auto end = text.find("\r\n", pos);
    EXPECT_NE(end, std::string::npos) << "every log line ends in CR LF";
    if (end == std::string::npos) break;
    lines.push_back(text.substr(pos, end - pos));
    pos = end + 2;
  }
  return lines;
}

// A program directory with template set "Klassiek" and an output directory,
// and fake steps that record their calls.
class GenerationRunTest : public ::testing::Test {
 protected:
  GenerationRunTest() {
    settings_.program_dir = dir_.path();
    settings_.sjabloon_dir = dir_ / "Sjabloon/";
    for (const char* name : kAllTemplates) test::WriteBytes(TemplateDir() + name, "<p></p>\n");
    std::filesystem::create_directories(OutputDir());
  }

  std::string TemplateDir() const { return dir_ / "Sjabloon/Klassiek/"; }
  std::string OutputDir() const { return dir_ / "uit/"; }
  std::string ScriptPath() const { return dir_ / "Reis.kbs"; }
  std::string LogPath() const { return dir_ / "reis.log"; }

  // A script with the given extra lines after the standard [Algemeen] keys.
  void WriteScript(const std::string& algemeen_extra, const std::string& rest = "") {
    test::WriteBytes(ScriptPath(), "[Kiekbord]\r\nVersie=4.1\r\n[Algemeen]\r\nTitel=Kust\r\nUitvoerDir=" +
                                       OutputDir() + "\r\n" + algemeen_extra + rest);
  }

  SiteSteps RecordingSteps() {
    SiteSteps steps;
    const auto record = [this](const char* name) {
      return [this, name](SiteRun& run) {
        calls_.push_back(name);
        photos_ = run.gegevens.foto_namen;
        captions_ = run.gegevens.bijschriften;
        photo_template_ = run.gegevens.foto_sjabloon;
        navigation_home_ = run.navigatie.link_home_tekst;
        if (failing_step_ == name) run.failed = kMislukt;
      };
    };
    steps.titel_pagina = record("titel");
    steps.thumbnails = record("thumbnails");
    steps.overzicht = record("overzicht");
    steps.stijlblad = record("stijlblad");
    steps.foto_paginas = record("fotos");
    steps.afbeeldingen = record("afbeeldingen");
    steps.scripts = record("scripts");
    steps.stijlbladen = record("stijlbladen");
    return steps;
  }

  SiteResultaat Run(const std::string& script_path) {
    SiteOmgeving omgeving(settings_);
    omgeving.steps = RecordingSteps();
    omgeving.observer = [this](const std::string& line) { observed_.push_back(line); };
    return MaakSite(script_path, omgeving);
  }
  SiteResultaat Run() { return Run(ScriptPath()); }

  Lines Log() const { return SplitLog(test::ReadBytes(LogPath())); }

  std::string VersionLine() const {
    return "Aangemaakt met: " + ProgramCaption() + " (" + std::to_string(BuildRevision()) + ")";
  }

  test::TempDir dir_;
  ProgramSettings settings_;
  Lines calls_;
  Lines observed_;
  std::vector<std::string> photos_;
  std::vector<std::string> captions_;
  std::string photo_template_;
  std::string navigation_home_;
  std::string failing_step_;
};

TEST_F(GenerationRunTest, SuccessfulRunWritesTheWholeLog) {
  WriteScript("Thumbnails=1\r\nAantalFotos=3\r\n",
              "[Instellingen]\r\nAantalFotosPerPagina=4\r\n"
              "[Foto001]\r\nFoto=a.jpg\r\nBijschrift=te kort\r\n"
              "[Foto002]\r\nFoto=strand.jpg\r\nBijschrift=Strand\r\n"
              "[Foto003]\r\nFoto=zee01.jpg\r\nBijschrift=\r\n");
  test::WriteBytes(TemplateDir() + "sjabloon.ini", "[NavigatieLinks]\r\nLinkHomeTekst=Begin\r\n");
  for (const char* page : {"kb001.html", "KBOVZ.HTML", "index.html", "kb.css", ".kbverborgen.html"}) {
    test::WriteBytes(OutputDir() + page, "oud");
  }

  const SiteResultaat result = Run();

  EXPECT_EQ(result.failed, kGelukt);
  EXPECT_FALSE(result.onverwacht);
  std::string expected = test::ReadBytes(test::TestDataDir() + "run_success/expected.log");
  expected = Vervang(expected, "@VERSIE@", VersionLine());
  expected = Vervang(expected, "@MAP@", dir_.path());
  EXPECT_EQ(Log(), SplitLog(expected));
  EXPECT_EQ(observed_, Log());
  EXPECT_EQ(calls_, (Lines{"titel", "thumbnails", "overzicht", "stijlblad", "fotos", "afbeeldingen",
                           "scripts", "stijlbladen"}));
  EXPECT_EQ(photos_, (Lines{"strand.jpg", "zee01.jpg"}));
  EXPECT_EQ(captions_, (Lines{"Strand", ""}));
  EXPECT_EQ(photo_template_, TemplateDir() + "kbfoto1m.html");
  EXPECT_EQ(navigation_home_, "Begin");
  // Old photo and overview pages are gone; the title page, other files and
  // hidden files stay.
  std::vector<std::string> left;
  ASSERT_TRUE(Fs().ListFiles(OutputDir(), "*", left).ok());
  EXPECT_EQ(left, (Lines{"index.html", "kb.css"}));
  EXPECT_TRUE(Fs().FileExists(OutputDir() + ".kbverborgen.html"));
}

TEST_F(GenerationRunTest, UnreadableScriptRunsOnWithDefaultsAndEndsAbnormally) {
  test::WriteBytes(OutputDir() + "kb001.html", "oud");
  const SiteResultaat result = Run(dir_ / "ontbreekt.kbs");
  EXPECT_EQ(result.failed, kMislukt);
  EXPECT_EQ(SplitLog(test::ReadBytes(dir_ / "ontbreekt.log")),
            (Lines{VersionLine(), "Inlezen script " + dir_ / "ontbreekt.kbs" + "...",
                   "Fout bij inlezen script: %Error 53 File not found",
                   "Variabelen uit script ingelezen.", "Abnormaal einde."}));
  EXPECT_TRUE(calls_.empty());
  EXPECT_TRUE(Fs().FileExists(OutputDir() + "kb001.html"));
}

TEST_F(GenerationRunTest, EveryMissingTemplateIsReportedAndNothingIsWritten) {
  struct Case { std::vector<const char*> missing; Lines lines; } cases[] = {
      {{"kbtitel.html"}, {"Sjabloon @T@kbtitel.html voor titelpagina niet gevonden."}},
      {{"kbovz.html"}, {"Sjabloon @T@kbovz.html voor overzichtspagina niet gevonden."}},
      {{"kb.css"}, {"Sjabloon @T@kb.css voor opmaak niet gevonden."}},
      {{"kbfoto1.html"}, {"Sjabloon @T@kbfoto1.html voor fotopagina's niet gevonden."}},
      {{"kbtitel.html", "kbfoto1.html"},
       {"Sjabloon @T@kbtitel.html voor titelpagina niet gevonden.",
        "Sjabloon @T@kbfoto1.html voor fotopagina's niet gevonden."}},
      {{"kbtitel.html", "kbovz.html", "kb.css", "kbfoto1.html"},
       {"Sjabloon @T@kbtitel.html voor titelpagina niet gevonden.",
        "Sjabloon @T@kbovz.html voor overzichtspagina niet gevonden.",
        "Sjabloon @T@kb.css voor opmaak niet gevonden.",
        "Sjabloon @T@kbfoto1.html voor fotopagina's niet gevonden."}},
  };
  WriteScript("Thumbnails=1\r\n");
  test::WriteBytes(OutputDir() + "kb001.html", "oud");
  for (const auto& c : cases) {
    for (const char* name : kAllTemplates) test::WriteBytes(TemplateDir() + name, "<p></p>");
    for (const char* name : c.missing) std::filesystem::remove(TemplateDir() + name);
    calls_.clear();

    EXPECT_EQ(Run().failed, kMislukt);

    Lines expected{VersionLine(), "Inlezen script " + ScriptPath() + "...",
                   "Script " + ScriptPath() + " ingelezen.", "Variabelen uit script ingelezen."};
    for (const std::string& line : c.lines) expected.push_back(Vervang(line, "@T@", TemplateDir()));
    expected.push_back("Abnormaal einde.");
    EXPECT_EQ(Log(), expected) << c.missing.front();
    EXPECT_TRUE(calls_.empty());
    EXPECT_TRUE(Fs().FileExists(OutputDir() + "kb001.html"));
  }
}

TEST_F(GenerationRunTest, OverviewOffSkipsItsTemplateCheckThumbnailsAndOverview) {
  WriteScript("Thumbnails=ja\r\n");
  std::filesystem::remove(TemplateDir() + "kbovz.html");
  EXPECT_EQ(Run().failed, kGelukt);
  EXPECT_EQ(calls_, (Lines{"titel", "stijlblad", "fotos", "afbeeldingen", "scripts", "stijlbladen"}));
  EXPECT_EQ(Log().back(), "Normaal einde.");
}

TEST_F(GenerationRunTest, PhotosAreTakenInByNameExtensionAndCaption) {
  const std::string photos =
      "[Foto001]\r\nFoto=a.jpg\r\nBijschrift=x\r\n"
      "[Foto002]\r\nFoto=beach.JPG\r\nBijschrift=x\r\n"
      "[Foto003]\r\nFoto=zee01.jpg\r\nBijschrift=Zee\r\n"
      "[Foto004]\r\nFoto=leeg01.jpg\r\n"
      "[Foto005]\r\nFoto=é1.jpg\r\nBijschrift=kort maar geldig\r\n";
  WriteScript("AantalFotos=5\r\n", "[Instellingen]\r\nFotosZonderBijschrift=0\r\n" + photos);
  Run();
  EXPECT_EQ(photos_, (Lines{"zee01.jpg", "leeg01.jpg", "é1.jpg"}));

  WriteScript("AantalFotos=5\r\n", "[Instellingen]\r\nFotosZonderBijschrift=1\r\n" + photos);
  Run();
  EXPECT_EQ(photos_, (Lines{"zee01.jpg", "é1.jpg"}));

  WriteScript("AantalFotos=4x\r\n", photos);
  Run();
  EXPECT_EQ(photos_, (Lines{"zee01.jpg", "leeg01.jpg"}));

  WriteScript("AantalFotos=geen\r\n", photos);
  Run();
  EXPECT_TRUE(photos_.empty());
}

TEST_F(GenerationRunTest, PhotoTemplateFollowsPositionPagesAndPresentation) {
  struct Case { const char* per_page; const char* presentation; const char* position; const char* name; } cases[] = {
      {"1", "0", "0", "kbfoto1.html"},  {"1", "0", "1", "kbfoto2.html"},
      {"1", "0", "2", "kbfoto3.html"},  {"2", "1", "0", "kbfoto1m.html"},
      {"1", "1", "0", "kbfoto1a.html"}, {"1", "1", "2", "kbfoto3a.html"},
      {"1", "01", "0", "kbfoto1.html"}, {"4", "0", "1.4", "kbfoto2m.html"},
      {"1", "0", "5", ";.html"},
  };
  for (const auto& c : cases) {
    WriteScript("", std::string("[Instellingen]\r\nAantalFotosPerPagina=") + c.per_page +
                        "\r\nPresentatie=" + c.presentation + "\r\nPositieBijschriften=" + c.position + "\r\n");
    photo_template_.clear();
    Run();
    const std::string expected = TemplateDir() + c.name;
    if (Fs().FileExists(expected)) {
      EXPECT_EQ(photo_template_, expected) << c.name;
    } else {
      EXPECT_EQ(Log().at(Log().size() - 2), "Sjabloon " + expected + " voor fotopagina's niet gevonden.");
    }
  }
}

TEST_F(GenerationRunTest, FailingStepSkipsEveryLaterStep) {
  WriteScript("Thumbnails=1\r\n");
  failing_step_ = "thumbnails";
  EXPECT_EQ(Run().failed, kMislukt);
  EXPECT_EQ(calls_, (Lines{"titel", "thumbnails"}));
  EXPECT_EQ(Log().back(), "Abnormaal einde.");

  calls_.clear();
  failing_step_ = "stijlblad";
  EXPECT_EQ(Run().failed, kMislukt);
  EXPECT_EQ(calls_, (Lines{"titel", "thumbnails", "overzicht", "stijlblad"}));
}

TEST_F(GenerationRunTest, ScriptLinesBeyondTheTableAreNotRead) {
  std::string photos;
  for (int i = 1; i <= 400; ++i) {
    char section[32];
    std::snprintf(section, sizeof section, "[Foto%03d]\r\n", i);
    photos += section + std::string("Foto=foto") + std::to_string(i) + ".jpg\r\nBijschrift=b\r\n";
  }
  WriteScript("AantalFotos=400\r\n", photos);
  Run();
  // 5 lines before the photos; 3 lines a photo fill the 1024-line table
  // with photo 339's section header as the last line.
  EXPECT_EQ(photos_.size(), 339u);
  EXPECT_EQ(photos_.back(), "foto339.jpg");
}

TEST_F(GenerationRunTest, PathWithoutKbsIsItsOwnLogAndGetsReplaced) {
  test::WriteBytes(dir_ / "galerie.txt", "[Algemeen]\r\nTitel=weg\r\n");
  std::filesystem::remove(TemplateDir() + "kbtitel.html");
  EXPECT_EQ(Run(dir_ / "galerie.txt").failed, kMislukt);
  const Lines log = SplitLog(test::ReadBytes(dir_ / "galerie.txt"));
  ASSERT_GE(log.size(), 3u);
  EXPECT_EQ(log[0], VersionLine());
  // The log replaced the script before it was read: an empty script.
  EXPECT_EQ(log[2], "Script " + dir_ / "galerie.txt" + " ingelezen.");
}

TEST_F(GenerationRunTest, LogPathLowerCasesTheFileNameOnly) {
  EXPECT_EQ(LogPad("/Galerie/Reis.KBS"), "/Galerie/reis.log");
  EXPECT_EQ(LogPad("/Map.kbs/a.kbs.KBS"), "/Map.kbs/a.log.log");
  EXPECT_EQ(LogPad("Reis.txt"), "reis.txt");
}

// --- Unexpected failures -----------------------------------------------------

// Fails the n-th log line written, and every page delete.
class FailingFileSystem : public ForwardingFileSystem {
 public:
  FailingFileSystem(int failing_line, int error)
      : ForwardingFileSystem(LocalFileSystem()), failing_line_(failing_line), error_(error) {}

  Status NewAppendFile(const std::string& path, std::unique_ptr<AppendFile>& file) override {
    std::unique_ptr<AppendFile> real;
    const Status status = ForwardingFileSystem::NewAppendFile(path, real);
    if (status.ok()) file = std::make_unique<CountingFile>(std::move(real), *this);
    return status;
  }
  Status DeleteFile(const std::string&) override { return Status::Error(error_); }

 private:
  class CountingFile : public AppendFile {
   public:
    CountingFile(std::unique_ptr<AppendFile> real, FailingFileSystem& fs) : real_(std::move(real)), fs_(fs) {}
    Status Append(std::string_view data) override {
      if (++fs_.lines_ == fs_.failing_line_) return Status::Error(fs_.error_);
      return real_->Append(data);
    }
    Status Close() override { return real_->Close(); }

   private:
    std::unique_ptr<AppendFile> real_;
    FailingFileSystem& fs_;
  };

  int failing_line_;
  int error_;
  int lines_ = 0;
};

TEST_F(GenerationRunTest, LogThatCannotBeWrittenIsAnUnexpectedFailure) {
  WriteScript("");
  FailingFileSystem disk_full(3, fout::kDiskFull);
  ScopedFileSystem scoped(disk_full);
  const SiteResultaat result = Run();
  ASSERT_TRUE(result.onverwacht);
  EXPECT_EQ(result.onverwacht->number(), 61);
  EXPECT_EQ(result.onverwacht->description(), "Disk full");
  EXPECT_EQ(Log().size(), 2u);
  EXPECT_TRUE(calls_.empty());
}

TEST_F(GenerationRunTest, LogThatCannotBeCreatedIsAnUnexpectedFailure) {
  const SiteResultaat result = Run(dir_ / "geen-map/reis.kbs");
  ASSERT_TRUE(result.onverwacht);
  EXPECT_EQ(result.onverwacht->number(), 53);
}

TEST_F(GenerationRunTest, OldPageThatCannotBeDeletedIsAnUnexpectedFailure) {
  WriteScript("");
  test::WriteBytes(OutputDir() + "kb001.html", "oud");
  FailingFileSystem no_delete(0, fout::kPermissionDenied);
  ScopedFileSystem scoped(no_delete);
  const SiteResultaat result = Run();
  ASSERT_TRUE(result.onverwacht);
  EXPECT_EQ(result.onverwacht->number(), 70);
  EXPECT_EQ(Log().back(), "Verwijderen oude fotopagina's...");
  EXPECT_TRUE(calls_.empty());
}

}  // namespace
}  // namespace kiekbord
