// The rules of app/: the program settings of "KBord.ini", the user's stored
// preferences, the checks at start-up and the search for the browser, called
// with telling inputs in one transcript compared whole with
// tests/data/app/regels.txt ("call: result" per line; a message starts with
// its kind, CR LF shows as "\r\n", the scratch directory as @TMP@).

#include <gtest/gtest.h>

#include <map>

#include "app/browser_search.h"
#include "app/program_settings.h"
#include "app/startup_checks.h"
#include "app/user_preferences.h"
#include "base/text_helpers.h"
#include "tests/support/golden.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using S = std::string;

S Rij(const std::vector<S>& delen) {
  S rij;
  for (const S& deel : delen) rij += deel + " | ";
  return rij;
}

S M(const Melding& m) { return S(m.soort == MeldingSoort::kFout ? "fout " : "waarschuwing ") + m.tekst; }

// The settings store in memory.
struct Geheugen : VoorkeurenOpslag {
  std::optional<S> Lees(std::string_view sectie, std::string_view sleutel) const override {
    const auto it = waarden.find(S(sectie) + "/" + S(sleutel));
    return it == waarden.end() ? std::nullopt : std::optional(it->second);
  }
  void Schrijf(std::string_view s, std::string_view k, std::string_view w) override { waarden[S(s) + "/" + S(k)] = w; }
  std::map<S, S> waarden;  // "section/key" -> value
};

TEST(AppRules, TranscriptOfEveryRuleAndText) {
  test::TempDir tmp;
  S uit;
  const auto zet = [&uit](const S& wat, const S& tekst) {
    uit += Vervang(Vervang(wat + ": " + tekst, "\r\n", "\\r\\n"), "\n", "\\n") + "\n";
  };
  for (const S& ini : {S(), S("\x00\xFF\xFE binary \x01", 12), S("[Foto]\r\nMaximumAantal=5\r\n"),
                       S("[Foto]\r\nMaximumAantal=veel\r\n"), S("[Foto]\r\nMaximumAantal=150\r\n"),
                       S("[Foto]\nMaximumAantal=1000\nVerkleinen=ja\nExternBewerken=1\n[Sjabloon]\nMetaKeywords=true\n"
                         "MetaDescription=0\nBestandslocatie=$(AppPath)/Mijn sjablonen\nBestandstype=htm\n"
                         "Hostname=www.voorbeeld.nl\nCreditURL=https://elders.nl/\n[Help]\nBestandslocatie=/srv/hulp/\n"
                         "Bestandstype=.php\n[Instellingen]\nKleurKader=#336699\n")}) {
    if (!ini.empty()) test::WriteBytes(tmp / "KBord.ini", ini);
    const ProgramSettings s = LeesProgrammaInstellingen(tmp.path(), "/home/els");
    const S aan = S(s.verkleinen ? "V" : "") + (s.extern_bewerken ? "E" : "") + (s.meta_keywords ? "K" : "") +
                  (s.meta_description ? "D" : "");
    zet("KBord.ini " + (ini.empty() ? "(geen)" : ini[0] == '[' ? ini : "(onleesbaar)"),
        Rij({s.program_dir, std::to_string(s.maximum_aantal), aan, s.sjabloon_dir, s.sjabloon_type, s.sjabloon_host,
             s.credit_url, s.help_dir, s.help_type, s.help_host, s.kleur_tekst_op_achtergrond, s.kleur_achtergrond,
             s.kleur_tekst_in_kader, s.kleur_kader, s.default_dir, s.caption, s.quote}));
  }
  Geheugen opslag;  // each stored value read and written back
  for (const std::map<S, S>& waarden :
       {std::map<S, S>{}, {{"Verkleinen/Kwaliteit", "2"}, {"Rotate/Backup", "2"}, {"Photo/Editor", "/usr/bin/gimp"}},
        {{"Exit/Question", "ja"}, {"MSIE/DDE", ""}, {"Recent/Default", "99999"}, {"Verkleinen/Breedte", "1024"},
         {"Verkleinen/Hoogte", "70000"}, {"Verkleinen/Verhouding", "ja"}, {"Verkleinen/Kwaliteit", "3"}}}) {
    opslag.waarden = waarden;
    SchrijfVoorkeuren(opslag, LeesVoorkeuren(opslag));
    SchrijfVerkleinInstellingen(opslag, LeesVerkleinInstellingen(opslag));
    SchrijfLaatsteDir(opslag, "/foto/");
    SchrijfLaatsteScript(opslag, "/foto/reis.kbs");
    const S wat = "voorkeuren uit " + std::to_string(waarden.size()) + " waarden";
    for (const auto& [sleutel, waarde] : opslag.waarden) zet(wat, sleutel + "=" + waarde);
  }
  zet("LeesLaatsteDir, LeesLaatsteScript", LeesLaatsteDir(opslag) + " " + LeesLaatsteScript(opslag));
  for (const auto& [pad, inhoud] : std::map<S, S>{
           {"Sjabloon/Raster/x", ""}, {"Sjabloon/Donker/x", ""}, {"Sjabloon/.verborgen/x", ""},
           {"Sjabloon/Klassiek/x", ""}, {"Sjabloon/los.txt", ""}, {"Reis.KBS", "[Kiekbord]\r\n"},
           {"index.html", ""}, {"httpd/index.html", ""}, {"bin/dillo", ""},
           {"systeem/applications/chromium.desktop",
            "[Desktop Entry]\nName=Chromium\nExec=/usr/bin/chromium %U\n\n[Desktop Action new-window]\nExec=/x\n"},
           {"systeem/applications/firefox.desktop", "[Desktop Entry]\r\nExec=firefox %u\r\n"},
           {"systeem/applications/kaal.desktop", "[Desktop Entry]\r\nExec=kaal %u\r\n"},
           {"systeem/applications/q.desktop", "[Desktop Entry]\nExec=\"/opt/Mijn Browser/browser\" --new %u\n"},
           {"systeem/applications/actie.desktop", "[Desktop Action x]\nExec=/x\n[Desktop Entry]\nName=Actie\n"},
           {"systeem/applications/dillo.desktop", "[Desktop Entry]\nExec=dillo %u\n"},
           {"eigen/applications/firefox.desktop", "[Desktop Entry]\nExec=/home/els/firefox/firefox %u\n"}}) {
    test::WriteBytes(tmp / pad, inhoud);
  }
  for (const S& map : {tmp / "Sjabloon/", tmp / "weg/"}) zet("SjabloonSets " + map, Rij(SjabloonSets(map)));
  zet("GeenSjablonenMelding", M(GeenSjablonenMelding("/p/S/")));
  const char* const soorten[] = {"niets", "onjuist", "openen"};
  for (const S& regel : {"\"" + tmp / "Reis.KBS" + "\"  ", tmp / "weg.kbs", S("a.kbs"), S("abc.txt"), S("abcd.txt"),
                         S(""), S("\"/a b/reis.txt\"")}) {
    const OpdrachtregelScript r = BekijkOpdrachtregel(regel);
    zet("BekijkOpdrachtregel " + regel, S(soorten[static_cast<int>(r.soort)]) + " " + r.pad + " | " + M(r.melding));
  }
  zet("AlGestartMelding", M(AlGestartMelding()));

  // The browser: asked of the desktop once, for a local page by its name.
  for (const S& adres : {tmp / "index.html", tmp / "weg.html", tmp / "httpd/index.html", S("https://k.nl/"), S("  ")}) {
    zet("BestandVoorZoeken " + adres, BestandVoorZoeken(adres));
  }
  for (const auto& antwoord : {std::optional<S>("/usr/bin/chromium"), std::optional<S>(), std::optional<S>("")}) {
    S gevraagd;
    BrowserZoeker zoeker([&](const S& bestand) { return gevraagd += "'" + bestand + "' ", antwoord; });
    const S eerste = zoeker.FindBrowser(tmp / "index.html");
    const AdresOpenen plan = PlanAdresOpenen(zoeker.FindBrowser("https://k.nl/"));
    const char* const plannen[] = {"niets", "melding", "openen"};
    zet("BrowserZoeker " + antwoord.value_or("(geen)"),
        eerste + " | gevraagd " + gevraagd + "| " + plannen[static_cast<int>(plan.soort)] + " " + M(plan.melding));
  }
  zet("PlanAdresOpenen ''", PlanAdresOpenen("").soort == AdresOpenen::Soort::kNiets ? "niets" : "iets");
  zet("AdresNietGeopendMelding", M(AdresNietGeopendMelding("/prog/Help/index.html")));
  zet("ApplicatieMappen", Rij(ApplicatieMappen("/h/els", "", "")) + "en " + Rij(ApplicatieMappen("/h/", "/d", "/o/:/u")));
  const std::vector<S> mappen = {tmp / "eigen/applications/", tmp / "systeem/applications/"};
  for (const char* id : {"chromium.desktop", "chromium.desktop\n", "firefox.desktop", "kaal.desktop", "dillo.desktop",
                         "q.desktop", "actie.desktop", "weg.desktop", "", "../../systeem/applications/chromium.desktop"}) {
    const auto programma = ProgrammaVanDesktopEntry(id, mappen, "relatief:" + tmp / "bin");
    zet(S("ProgrammaVanDesktopEntry ") + id, programma.value_or("(geen)"));
  }
  test::WriteBytes(tmp / "regels.txt", uit);
  EXPECT_TRUE(test::GelijkAanGolden(test::TestDataDir() + "app/regels.txt", tmp / "regels.txt", {{"@TMP@", tmp.path()}}));
}

}  // namespace
}  // namespace kiekbord
