#include "app/browser_search.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/program_settings.h"
#include "editor/options_rules.h"
#include "editor/wizard_rules.h"
#include "base/file_system.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using test::TempDir;
using test::WriteBytes;

// A desktop that answers from a fixed value and records each question.
struct Opzoeker {
  std::optional<std::string> antwoord;
  std::vector<std::string> gevraagd;
  BrowserOpzoeker Functie() {
    return [this](const std::string& bestand) {
      gevraagd.push_back(bestand);
      return antwoord;
    };
  }
};

// The browser is looked up once; what was found, or the error text when
// nothing was, is given from then on.
TEST(BrowserSearch, FoundOnceAndThenReused) {
  const std::optional<std::string> antwoorden[] = {"/usr/bin/chromium", std::nullopt, ""};
  for (const auto& antwoord : antwoorden) {
    Opzoeker desktop;
    desktop.antwoord = antwoord;
    BrowserZoeker zoeker(desktop.Functie());
    const std::string eerste = zoeker.FindBrowser("https://kiekbord.nl/");
    EXPECT_EQ(eerste, antwoord.value_or("").empty() ? "%Error:De Internet Browser is niet gevonden." : *antwoord);
    desktop.antwoord = "/usr/bin/firefox";
    EXPECT_EQ(zoeker.FindBrowser("/elders/index.html"), eerste);
    EXPECT_EQ(desktop.gevraagd, std::vector<std::string>{""});
  }
}

TEST(BrowserSearch, AnExistingLocalFileIsAskedForByName) {
  TempDir tmp;
  WriteBytes(tmp / "index.html", "<html></html>");
  const std::string pagina = tmp / "index.html";
  // A file whose path holds "http" counts as an address.
  WriteBytes(tmp / "httpd/index.html", "<html></html>");
  EXPECT_EQ(BestandVoorZoeken(pagina), pagina);
  for (const std::string& adres : {tmp / "ontbreekt.html", tmp / "httpd/index.html",
                                   std::string("https://kiekbord.nl/index.html"), std::string("   ")}) {
    EXPECT_EQ(BestandVoorZoeken(adres), "") << adres;
  }

  Opzoeker desktop;
  desktop.antwoord = "/usr/bin/chromium";
  BrowserZoeker zoeker(desktop.Functie());
  zoeker.FindBrowser(pagina);
  EXPECT_EQ(desktop.gevraagd, std::vector<std::string>{pagina});
}

TEST(BrowserSearch, WhatOpeningAnAddressTakes) {
  EXPECT_EQ(PlanAdresOpenen("").soort, AdresOpenen::Soort::kNiets);
  EXPECT_EQ(PlanAdresOpenen("/usr/bin/chromium").soort, AdresOpenen::Soort::kOpenen);
  const AdresOpenen fout = PlanAdresOpenen(std::string(kBrowserNietGevonden));
  EXPECT_EQ(fout.soort, AdresOpenen::Soort::kMelding);
  EXPECT_EQ(fout.melding, (Melding{MeldingSoort::kWaarschuwing, "De Internet Browser is niet gevonden."}));
  EXPECT_EQ(AdresNietGeopendMelding("/prog/Help/index.html"),
            (Melding{MeldingSoort::kWaarschuwing, "Internetadres /prog/Help/index.html kan niet worden geopend."}));
}

TEST(BrowserSearch, ApplicationDirectoriesFollowTheXdgRules) {
  EXPECT_EQ(ApplicatieMappen("/home/els", "", ""),
            (std::vector<std::string>{"/home/els/.local/share/applications/", "/usr/local/share/applications/",
                                      "/usr/share/applications/"}));
  EXPECT_EQ(ApplicatieMappen("/home/els/", "/data/els", "/opt/share/:/usr/share"),
            (std::vector<std::string>{"/data/els/applications/", "/opt/share/applications/",
                                      "/usr/share/applications/"}));
}

TEST(BrowserSearch, ProgramOfADesktopEntry) {
  TempDir tmp;
  const std::string eigen = tmp / "eigen/applications/";
  const std::string systeem = tmp / "systeem/applications/";
  const std::string bin = tmp / "bin";
  WriteBytes(systeem + "chromium.desktop",
             "[Desktop Entry]\nName=Chromium\nExec=/usr/bin/chromium %U\n\n[Desktop Action new-window]\nExec=/x\n");
  WriteBytes(systeem + "firefox.desktop", "[Desktop Entry]\r\nExec=firefox %u\r\n");
  WriteBytes(systeem + "quoted.desktop", "[Desktop Entry]\nExec=\"/opt/Mijn Browser/browser\" --new %u\n");
  WriteBytes(systeem + "actie.desktop", "[Desktop Action x]\nExec=/x\n[Desktop Entry]\nName=Actie\n");
  WriteBytes(eigen + "firefox.desktop", "[Desktop Entry]\nExec=/home/els/firefox/firefox %u\n");
  WriteBytes(bin + "/dillo", "");
  WriteBytes(systeem + "dillo.desktop", "[Desktop Entry]\nExec=dillo %u\n");
  const std::vector<std::string> mappen = {eigen, systeem};
  const std::string pad = "relatief:" + bin;
  EXPECT_EQ(ProgrammaVanDesktopEntry("chromium.desktop", mappen, pad), "/usr/bin/chromium");
  EXPECT_EQ(ProgrammaVanDesktopEntry("chromium.desktop\n", mappen, pad), "/usr/bin/chromium");
  // The user's own entry comes first.
  EXPECT_EQ(ProgrammaVanDesktopEntry("firefox.desktop", mappen, pad), "/home/els/firefox/firefox");
  EXPECT_EQ(ProgrammaVanDesktopEntry("firefox.desktop", {systeem}, pad), "firefox");
  EXPECT_EQ(ProgrammaVanDesktopEntry("dillo.desktop", mappen, pad), bin + "/dillo");
  EXPECT_EQ(ProgrammaVanDesktopEntry("quoted.desktop", mappen, pad), "/opt/Mijn Browser/browser");
  for (const char* id : {"actie.desktop", "ontbreekt.desktop", ""}) {
    EXPECT_EQ(ProgrammaVanDesktopEntry(id, mappen, pad), std::nullopt) << id;
  }
  EXPECT_EQ(ProgrammaVanDesktopEntry("../systeem/applications/chromium.desktop", {eigen}, pad), std::nullopt);
}

// --- Help pages ----------------------------------------------------------------------

TEST(HelpPages, AddressRules) {
  ProgramSettings s;
  s.help_dir = "/prog/Help/";
  const struct {
    const char* type;
    const char* host;
    const char* adres;  // empty: the host-name message
  } gevallen[] = {
      {".html", "", "/prog/Help/index.html"}, {".htm", "", "/prog/Help/index.htm"},
      {".HTML", "", "/prog/Help/index.HTML"}, {".php", "", ""}, {".php", "h", ""}, {".php", "hu", "huindex.php"},
      {".php", "https://hulp.kiekbord.nl/", "https://hulp.kiekbord.nl/index.php"},
      {".shtml", "https://hulp.kiekbord.nl/", "https://hulp.kiekbord.nl/index.shtml"},
  };
  const Melding host_fout{MeldingSoort::kWaarschuwing,
                          "Hostname niet (goed) gedefinieerd!\r\nHelppagina kan niet worden gestart."};
  for (const auto& g : gevallen) {
    s.help_type = g.type;
    s.help_host = g.host;
    const HelpAdres help = HelpPaginaAdres(s, "index");
    EXPECT_EQ(help.adres, g.adres) << g.type << " " << g.host;
    EXPECT_EQ(help.fout, *g.adres ? std::nullopt : std::optional(host_fout)) << g.type << " " << g.host;
  }
}

// Every page the help menu and the options dialog open is there in the
// program's data, under the default settings.
TEST(HelpPages, EveryPageTheProgramOpensExists) {
  const std::string program_dir = test::TestDataDir() + "../../data/";
  const ProgramSettings s = LeesProgrammaInstellingen(program_dir, "/home/els/");
  ASSERT_EQ(s.help_dir, program_dir + "Help/");
  std::vector<std::string> paginas = {"index", "index04", std::string(kOptiesHelpPagina)};
  for (int stap = kEersteStap; stap <= kLaatsteStap; ++stap) paginas.push_back(HelpPaginaVanStap(stap));
  for (const std::string& pagina : paginas) {
    const HelpAdres help = HelpPaginaAdres(s, pagina);
    ASSERT_FALSE(help.fout.has_value()) << pagina;
    EXPECT_TRUE(Fs().FileExists(help.adres)) << help.adres;
  }
}

}  // namespace
}  // namespace kiekbord
