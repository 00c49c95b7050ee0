#include "editor/wizard_rules.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>

#include "base/file_system.h"
#include "tests/gallery/script_fakes.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using test::TempDir;
using test::WriteBytes;

TEST(WizardRules, StepCaptionsStatesAndHelpPages) {
  EXPECT_EQ(StapTitel(1), "1. Algemeen");
  EXPECT_EQ(StapTitel(2), "2. Fotobijschriften");
  EXPECT_EQ(StapTitel(3), "3. Instellingen");
  EXPECT_EQ(HelpStapTitel(2), "Stap &2. Fotobijschriften");
  EXPECT_EQ(HelpPaginaVanStap(3), "index03");
  struct Geval {
    int stap;
    bool vorige, volgende, voltooien, openen, bewerken;
  };
  for (const Geval& g : {Geval{1, false, true, false, true, false}, Geval{2, true, true, false, false, true},
                         Geval{3, true, false, true, false, false}}) {
    const StapToestand t = ToestandVoorStap(g.stap);
    EXPECT_EQ((std::array{t.vorige, t.volgende, t.voltooien, t.script_openen, t.bewerken}),
              (std::array{g.vorige, g.volgende, g.voltooien, g.openen, g.bewerken}))
        << g.stap;
  }
}

TEST(WizardRules, PlanVolgende) {
  TempDir in, uit, vol;
  WriteBytes(vol / "Foto.JPG", "x");
  // Empty output, other input: ask to copy.
  VolgendeVanStap1 p = PlanVolgende(in.path(), uit.path());
  EXPECT_TRUE(p.kopieer_vraag);
  EXPECT_FALSE(p.hernoemen);
  // The same directory: no question, rename.
  p = PlanVolgende(uit.path(), uit.path().substr(0, uit.path().size() - 1));
  EXPECT_FALSE(p.kopieer_vraag);
  EXPECT_TRUE(p.hernoemen);
  // Photos in the output directory already: neither.
  p = PlanVolgende(in.path(), vol.path());
  EXPECT_FALSE(p.kopieer_vraag);
  EXPECT_FALSE(p.hernoemen);
}

TEST(WizardRules, DirectoryChecks) {
  TempDir dir;
  WriteBytes(dir / "bestand", "x");
  EXPECT_TRUE(ControleerInvoerMap(dir.path()).goed());
  EXPECT_EQ(ControleerInvoerMap("").soort, MapUitkomst::Soort::kLeeg);
  EXPECT_EQ(ControleerInvoerMap("").melding.tekst, "Vul de invoerdirectory in: de directory met uw foto's.");
  EXPECT_EQ(ControleerInvoerMap(dir / "bestand").melding.tekst,
            "Invoerdirectory " + dir / "bestand" + " is geen directory maar een bestand.");
  EXPECT_EQ(ControleerInvoerMap(dir / "weg").melding.tekst,
            "Invoerdirectory " + dir / "weg" + " bestaat niet.\r\nKies met 'Bladeren...' de directory met uw foto's.");
  EXPECT_TRUE(ControleerUitvoerMap(dir.path()).goed());
  EXPECT_EQ(ControleerUitvoerMap(" ").melding.tekst,
            "Vul de uitvoerdirectory in: de directory waarin de kiekbord komt.");
  EXPECT_EQ(ControleerUitvoerMap(dir / "weg").soort, MapUitkomst::Soort::kOntbreekt);
  EXPECT_EQ(UitvoerMapAanmakenVraag("/x/y").tekst, "Uitvoerdirectory /x/y bestaat niet.\r\n\r\nWilt u deze directory nu aanmaken?");
  EXPECT_EQ(UitvoerMapNietAangemaaktMelding("/x/y", Status::Error(fout::kPermissionDenied)).tekst,
            "Uitvoerdirectory /x/y kan niet worden aangemaakt\r\n(fout 70: Permission denied).");
}

class AlleenLezen : public ForwardingFileSystem {
 public:
  AlleenLezen() : ForwardingFileSystem(LocalFileSystem()) {}
  Status WriteFile(const std::string&, std::string_view) override { return Status::Error(fout::kPermissionDenied); }
  Status CreateDirectory(const std::string&) override { return Status::Error(fout::kPermissionDenied); }
};

TEST(WizardRules, UnwritableOutputDirectoryIsRefused) {
  TempDir dir;
  AlleenLezen alleen_lezen;
  ScopedFileSystem scoped(alleen_lezen);
  const MapUitkomst u = ControleerUitvoerMap(dir.path());
  EXPECT_EQ(u.soort, MapUitkomst::Soort::kNietSchrijfbaar);
  EXPECT_EQ(u.melding.tekst, "In uitvoerdirectory " + dir.path() +
                                 " kunnen geen bestanden worden aangemaakt\r\n(fout 70: Permission denied).\r\n"
                                 "Kies een directory waarin u mag schrijven.");
  EXPECT_EQ(MaakMappen(dir / "a/b").number(), fout::kPermissionDenied);
}

TEST(WizardRules, MaakMappenMakesParents) {
  TempDir dir;
  EXPECT_TRUE(MaakMappen(dir / "a/b/c/").ok());
  EXPECT_TRUE(std::filesystem::is_directory(dir / "a/b/c"));
  EXPECT_TRUE(MaakMappen(dir / "a/b/c").ok());
  // No probe file is left behind.
  EXPECT_TRUE(ControleerUitvoerMap(dir / "a").goed());
  EXPECT_TRUE(std::filesystem::is_empty(dir / "a/b/c"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir / "a"), {}), 1);
}

TEST(WizardRules, FinishQuestions) {
  EXPECT_EQ(EerstOpslaanVraag(),
            (Melding{MeldingSoort::kVraag, "Om een nieuwe kiekbord aan te maken, moeten\r\nde ingevoerde gegevens eerst "
                                          "als script worden opgeslagen.\r\n\r\nWilt u de gegevens nu opslaan?"}));
  EXPECT_EQ(AfsluitenVraag(), (Melding{MeldingSoort::kVraag, "Wilt u Kiekbord afsluiten?"}));

  ProgramSettings s;
  Afronding a = AfrondingNaRun(true, s, "/site", "/g/Reis.KBS");
  EXPECT_EQ(a.melding, (Melding{MeldingSoort::kVraag, "De kiekbord is aangemaakt.\r\nWilt u het resultaat nu bekijken?"}));
  EXPECT_TRUE(a.is_vraag);
  EXPECT_EQ(a.adres, "/site/index.html");
  EXPECT_FALSE(a.log);

  s.sjabloon_type = ".php";
  a = AfrondingNaRun(true, s, "/site/", "/g/r.kbs");
  EXPECT_EQ(a.melding, (Melding{MeldingSoort::kInformatie, "De kiekbord is aangemaakt (bestandstype '.php')."}));
  EXPECT_FALSE(a.is_vraag);

  s.sjabloon_host = "http://www.voorbeeld.nl";
  a = AfrondingNaRun(true, s, "/site/", "/g/r.kbs");
  EXPECT_EQ(a.melding.tekst, "De kiekbord is aangemaakt (bestandstype '.php').\r\nWilt u het resultaat nu bekijken?");
  EXPECT_TRUE(a.is_vraag);
  EXPECT_EQ(a.adres, "http://www.voorbeeld.nl/index.php");

  a = AfrondingNaRun(false, s, "/site/", "/Galerie/Reis.KBS");
  EXPECT_EQ(a.melding, (Melding{MeldingSoort::kWaarschuwing, "Fout tijdens aanmaken kiekbord.\r\nWilt u het logbestand bekijken?"}));
  EXPECT_TRUE(a.log);
  EXPECT_EQ(a.adres, "/Galerie/reis.log");
}

}  // namespace
}  // namespace kiekbord
