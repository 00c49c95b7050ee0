#include "generator/title_page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "gallery/file_system.h"
#include "tests/generator/page_writer_fixture.h"
#include "tests/support/golden.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using Lines = std::vector<std::string>;

class TitelPaginaTest : public test::PaginaSchrijverTest {
 protected:
  std::int16_t Maak() {
    return Voer([this](SiteRun& run) { MaakTitelPagina(run, Kop()); });
  }
  void MetSjabloon(const std::string& tekst) {
    gegevens_.titel_sjabloon = dir_ / "sjabloon/kbtitel.html";
    test::WriteBytes(gegevens_.titel_sjabloon, tekst);
  }
  Lines Inlezen() const {
    return {"Inlezen sjabloon " + gegevens_.titel_sjabloon + "...",
            "Sjabloon " + gegevens_.titel_sjabloon + " ingelezen."};
  }
  Lines Plus(Lines lines, const Lines& more) const {
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
  }
  Lines BestandenInUit() const {
    Lines names;
    for (const auto& entry : std::filesystem::directory_iterator(gegevens_.uitvoer_dir)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
};

// --- Golden pages ----------------------------------------------------------------

struct TitelGeval {
  const char* map;  // under tests/data: kbtitel.html in, verwacht/index.html out
  const char* titel;
  const char* subtitel;
  const char* datum;
  const char* beschrijving;
  const char* thumbnails;
  const char* positie;
  int aantal_fotos;
  bool meta_keywords;
};

void PrintTo(const TitelGeval& geval, std::ostream* out) { *out << geval.map; }

class TitelPaginaGoldenTest : public TitelPaginaTest,
                              public ::testing::WithParamInterface<TitelGeval> {};

TEST_P(TitelPaginaGoldenTest, WritesTheExpectedPage) {
  const TitelGeval& geval = GetParam();
  const std::string map = test::TestDataDir() + geval.map + "/";
  gegevens_.titel_sjabloon = map + "kbtitel.html";
  gegevens_.titel = geval.titel;
  gegevens_.subtitel = geval.subtitel;
  gegevens_.datum = geval.datum;
  gegevens_.beschrijving = geval.beschrijving;
  gegevens_.thumbnails = geval.thumbnails;
  gegevens_.positie_fotos = geval.positie;
  gegevens_.foto_namen.assign(geval.aantal_fotos, "foto01.jpg");
  gegevens_.bijschriften.assign(geval.aantal_fotos, "");
  settings_.meta_keywords = geval.meta_keywords;

  ASSERT_EQ(Maak(), kGelukt) << ::testing::PrintToString(log_);
  EXPECT_TRUE(test::GelijkAanGolden(map + "verwacht/index.html", Uit("index.html")));
  EXPECT_EQ(log_, Plus(Inlezen(), {"Aanmaken titelpagina " + Uit("index.html") + "...",
                                    "Titelpagina " + Uit("index.html") + " aangemaakt."}));
  EXPECT_EQ(test::ReadBytes(Uit("kbicon.gif")), test::kProefIcoon);
}

INSTANTIATE_TEST_SUITE_P(
    Gevallen, TitelPaginaGoldenTest,
    ::testing::Values(
        // Every field, the overview link, centred credit line, both meta tags.
        TitelGeval{"titel_basis", "Vakantie in Italië", "Zomer 2026", "juli 2026",
                   "Twee weken Toscane.<br>Met veel zon & ijs.", "1", "1", 3, true},
        // "<h2></h2>" becomes a comment; no overview link; no keywords.
        TitelGeval{"titel_zonder_subtitel", "Strandwandeling", "", "", "", "0", "2", 0, false},
        // The credit line goes to the first marker only, not to "</BODY>".
        TitelGeval{"titel_linkicon", "Bergen", "", "", "", "0", "0", 1, true},
        // Without "<head>" the "</head>" line keeps its field: head block and
        // field both; the keywords take the title unescaped.
        TitelGeval{"titel_kop_met_veld", "Tom & Jerry", "", "", "", "0", "0", 1, true}),
    [](const auto& info) { return std::string(info.param.map); });

// --- Failures --------------------------------------------------------------------

TEST_F(TitelPaginaTest, MissingTemplateIsLoggedAndNothingIsWritten) {
  gegevens_.titel_sjabloon = dir_ / "sjabloon/kbtitel.html";
  EXPECT_EQ(Maak(), kMislukt);
  EXPECT_EQ(log_, (Lines{"Inlezen sjabloon " + gegevens_.titel_sjabloon + "...",
                         "Fout bij inlezen sjabloon: %Error 53 File not found"}));
  EXPECT_EQ(BestandenInUit(), Lines{});
}

TEST_F(TitelPaginaTest, UnreadableTemplateIsLoggedAndNothingIsWritten) {
  MetSjabloon("<html><body></body></html>\n");
  test::GeweigerdeToegang fs;
  fs.lezen_geweigerd = gegevens_.titel_sjabloon;
  ScopedFileSystem scoped(fs);
  EXPECT_EQ(Maak(), kMislukt);
  EXPECT_EQ(log_, (Lines{"Inlezen sjabloon " + gegevens_.titel_sjabloon + "...",
                         "Fout bij inlezen sjabloon: %Error 70 Permission denied"}));
  EXPECT_EQ(BestandenInUit(), Lines{});
}

TEST_F(TitelPaginaTest, UnwritablePageIsLoggedAndTheEarlierPageStays) {
  MetSjabloon("<html><body>[KIEKBORDVELD=TITEL]</body></html>\n");
  test::WriteBytes(Uit("index.html"), "vorige titelpagina");
  test::WriteBytes(Uit("kbicon.gif"), test::kProefIcoon);
  test::GeweigerdeToegang fs;
  fs.schrijven_geweigerd = gegevens_.uitvoer_dir;
  ScopedFileSystem scoped(fs);

  EXPECT_EQ(Maak(), kMislukt);
  EXPECT_EQ(log_, Plus(Inlezen(), {"Aanmaken titelpagina " + Uit("index.html") + "...",
                                    "Fout bij aanmaken titelpagina: %Error 70 Permission denied"}));
  EXPECT_EQ(test::ReadBytes(Uit("index.html")), "vorige titelpagina");
  EXPECT_EQ(BestandenInUit(), (Lines{"index.html", "kbicon.gif"}));
}

TEST_F(TitelPaginaTest, IconThatCannotBeCopiedEndsTheStepBeforeThePage) {
  MetSjabloon("<html><head></head><body>\n</body></html>\n");
  test::GeweigerdeToegang fs;
  fs.schrijven_geweigerd = gegevens_.uitvoer_dir;
  ScopedFileSystem scoped(fs);

  EXPECT_EQ(Maak(), kMislukt);
  EXPECT_EQ(log_, Plus(Inlezen(), {"70 Permission denied"}));
  EXPECT_EQ(BestandenInUit(), Lines{});
}

TEST_F(TitelPaginaTest, TextBeyondTheLimitsEndsTheStepWithoutAPage) {
  MetSjabloon("<html><body><h1>[KIEKBORDVELD=TITEL]</h1></body></html>\n");
  gegevens_.titel = std::string(40000, 'x');
  EXPECT_EQ(Maak(), kMislukt);
  EXPECT_EQ(log_, Plus(Inlezen(), {"6 Overflow"}));
  EXPECT_FALSE(std::filesystem::exists(Uit("index.html")));
}

// --- Details ---------------------------------------------------------------------

TEST_F(TitelPaginaTest, WithoutAnIconThePageHasNoCreditLine) {
  std::filesystem::remove(settings_.program_dir + "kbicon.gif");
  MetSjabloon("<html><head></head><body>\n<p>x</p>\n</body></html>\n");
  settings_.meta_keywords = false;
  settings_.meta_description = false;
  ASSERT_EQ(Maak(), kGelukt);
  EXPECT_EQ(test::ReadBytes(Uit("index.html")),
            "<html>\r\n<head>\r\n"
            "<!-- Aangemaakt op zaterdag 21 november 2026 -->\r\n"
            "<!-- Aangemaakt met Kiekbord 4.1 Pro -->\r\n</head>\r\n"
            "<body>\r\n<p>x</p>\r\n</body>\r\n</html>\r\n");
}

TEST_F(TitelPaginaTest, LinksFollowThePageExtension) {
  gegevens_.ext = ".htm";
  gegevens_.thumbnails = "1";
  MetSjabloon("<p>[KIEKBORDVELD=LINKEERSTEPAGINA]</p>\n<p>[KIEKBORDVELD=LINKOVERZICHT]</p>\n");
  ASSERT_EQ(Maak(), kGelukt);
  EXPECT_EQ(test::ReadBytes(Uit("index.htm")),
            "<p><a href=\"kb001.htm\" title=\"Klik hier om de foto's direct te bekijken\">"
            "Kiekbord</a></p>\r\n"
            "<p><a href=\"kbovz.htm\" title=\"Klik hier voor een totaaloverzicht (thumbnails)\">"
            "Overzicht</a></p>\r\n");
}

TEST_F(TitelPaginaTest, PositionBeyondTheListAlignsToTheSeparator) {
  gegevens_.positie_fotos = "3";
  MetSjabloon("<div align=\"[KIEKBORDVELD=POSITIEFOTOS]\"></div>\n");
  ASSERT_EQ(Maak(), kGelukt);
  EXPECT_EQ(test::ReadBytes(Uit("index.html")), "<div align=\";\"></div>\r\n");
}

}  // namespace
}  // namespace kiekbord
