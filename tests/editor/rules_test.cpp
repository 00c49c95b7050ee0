// The rules of the window without a window (editor/). Those that map values
// to values are called with telling inputs, and every text the rules show is
// pinned, in one transcript compared whole with tests/data/editor/regels.txt.
// The rules that work on files follow: the photo list and import, the script
// file and the photo edits (what the image libraries do and say is tested in
// tests/images).

#include <gtest/gtest.h>

#include <array>
#include <filesystem>

#include "base/file_system.h"
#include "base/text_helpers.h"
#include "editor/colour_choice.h"
#include "editor/options_rules.h"
#include "editor/photo_edit.h"
#include "editor/photo_import.h"
#include "editor/photo_list.h"
#include "editor/photo_upright.h"
#include "editor/resize_rules.h"
#include "editor/script_commands.h"
#include "editor/template_colours.h"
#include "editor/wizard_rules.h"
#include "images/photo_properties.h"
#include "tests/support/fault_fs.h"
#include "tests/support/golden.h"
#include "tests/support/test_photos.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using test::BestandenIn;
using test::ReadBytes;
using test::TempDir;
using test::WriteBytes;
using Fotos = std::vector<PhotoEntry>;
using Namen = std::vector<std::string>;
using S = std::string;

const char* const kSoorten[] = {"informatie", "vraag", "waarschuwing", "fout"};
S M(const Melding& m) { return S(kSoorten[static_cast<int>(m.soort)]) + (m.nee_voorop ? " (nee voorop) " : " ") + m.tekst; }

// The names of the flags that are on, "-" for none.
S Aan(std::initializer_list<std::pair<const char*, bool>> vlaggen) {
  S namen;
  for (const auto& [naam, aan] : vlaggen) namen += aan ? S(namen.empty() ? "" : " ") + naam : "";
  return namen.empty() ? "-" : namen;
}

S N(int getal) { return std::to_string(getal); }
S N(double getal) { return std::to_string(getal); }

TEST(EditorRules, TranscriptOfEveryRuleAndText) {
  TempDir tmp;
  for (const char* naam : {"bestand", "in/bestaat.jpg", "uit/bestaat.jpg", "uit/hier.jpg", "dubbel/A.JPG",
                           "dubbel/a.jpg", "leesmij", "a/darktable", "b/krita", "c/gimp-helper", "d/pinta/.keep"}) {
    WriteBytes(tmp / naam, "x");
  }
  S uit;
  const auto zet = [&uit](const S& wat, const S& tekst) {
    uit += wat + ": " + Vervang(Vervang(tekst, "\r\n", "\\r\\n"), "\n", "\\n") + "\n";
  };
  // The wizard: steps, directories, finish and help.
  for (int stap = kEersteStap; stap <= kLaatsteStap; ++stap) {
    const StapToestand t = ToestandVoorStap(stap);
    zet("stap " + N(stap), StapTitel(stap) + " | " + HelpStapTitel(stap) + " | " + HelpPaginaVanStap(stap) + " | " +
                               Aan({{"vorige", t.vorige}, {"volgende", t.volgende}, {"voltooien", t.voltooien},
                                    {"openen", t.script_openen}, {"bewerken", t.bewerken}}));
  }
  for (const auto t : {kInvoerDirUitleg, kUitvoerDirUitleg, kMapBestaatNiet, kInvoerDirKiezenTitel,
                       kUitvoerDirKiezenTitel, kOptiesHelpPagina}) zet("tekst", S(t));
  const auto map = [](const MapUitkomst& u) { return N(static_cast<int>(u.soort)) + " " + M(u.melding); };
  for (const S& pad : {S(" "), tmp / "bestand", tmp / "weg", tmp / "uit"}) {
    zet("ControleerInvoerMap '" + pad + "'", map(ControleerInvoerMap(pad)));
    zet("ControleerUitvoerMap '" + pad + "'", map(ControleerUitvoerMap(pad)));
  }
  zet("schrijfproef over", Fs().FileExists(tmp / "uit/.kiekbord-schrijfproef") ? "ja" : "nee");
  zet("MaakMappen a/b/c/", N(MaakMappen(tmp / "a/b/c/").number()));
  zet("a/b/c is er", Fs().DirectoryExists(tmp / "a/b/c") ? "ja" : "nee");
  {
    test::FoutenSchijf schijf;
    schijf.Faal(test::FoutenSchijf::kSchrijven | test::FoutenSchijf::kMap, "*", fout::kPermissionDenied);
    ScopedFileSystem scoped(schijf);
    zet("ControleerUitvoerMap, onschrijfbaar", map(ControleerUitvoerMap(tmp.path())));
    zet("MaakMappen x/y, onschrijfbaar", N(MaakMappen(tmp / "x/y").number()));
  }
  for (const auto& [in, naar] : {std::pair{tmp / "in", tmp / "a"}, {tmp / "in", tmp / "IN/"}, {tmp / "in", tmp / "uit"}}) {
    const VolgendeVanStap1 v = PlanVolgende(in, naar);
    zet("PlanVolgende " + in + " " + naar, Aan({{"kopieervraag", v.kopieer_vraag}, {"hernoemen", v.hernoemen}}));
  }
  // Every page the help menu and the options dialog open is in the program's data.
  const ProgramSettings echt = LeesProgrammaInstellingen(test::TestDataDir() + "../../data/", "/home/els/");
  for (const S pagina : {"index", "index01", "index02", "index03", "index04", "index05"}) {
    zet("helppagina " + pagina, Fs().FileExists(HelpPaginaAdres(echt, pagina).adres) ? "er" : "ontbreekt");
  }
  zet("UitvoerMapAanmakenVraag", M(UitvoerMapAanmakenVraag("/x/y")));
  zet("UitvoerMapNietAangemaaktMelding", M(UitvoerMapNietAangemaaktMelding("/x/y", Status::Error(fout::kPermissionDenied))));
  zet("EerstOpslaanVraag", M(EerstOpslaanVraag()));
  zet("AfsluitenVraag", M(AfsluitenVraag()));
  for (const auto& [script, naar, laatste] : {std::tuple{"/g/r.kbs", tmp / "uit", "/l/"}, {"", tmp / "uit", "/l/"},
                                              {"", tmp / "weg", "/l/"}, {"", tmp / "weg", ""}}) {
    zet(S("OpslaanAlsMap '") + script + "' " + naar + " '" + laatste + "', uitvoer | laatste",
        OpslaanAlsMap(script, true, naar, laatste, "/home/") + " | " + OpslaanAlsMap(script, false, naar, laatste, "/h/"));
  }
  for (const auto& [type, host] : {std::pair{".html", ""}, {".HTML", ""}, {".htm", ""}, {".php", ""}, {".php", "h"},
                                   {".php", "hu"}, {".shtml", "https://hulp.nl/"}}) {
    ProgramSettings s;
    s.sjabloon_type = s.help_type = type;
    s.sjabloon_host = s.help_host = host;
    s.help_dir = "/prog/Help/";
    const HelpAdres help = HelpPaginaAdres(s, "index");
    zet(S("HelpPaginaAdres ") + type + " '" + host + "'", help.fout ? M(*help.fout) : help.adres);
    for (const bool gelukt : {true, false}) {
      const Afronding a = AfrondingNaRun(gelukt, s, "/s", "/g/Reis.KBS");
      zet(S("AfrondingNaRun ") + type + " '" + host + "' " + (gelukt ? "gelukt" : "mislukt"),
          M(a.melding) + " | " + a.adres + " | " + Aan({{"vraag", a.is_vraag}, {"log", a.log}}) + " | " +
              BekijkKnopTekst(a));
    }
  }
  for (const int soort : {0, 1, 2, 3}) {
    SiteResultaat r;
    r.failed = soort == 0 ? kGelukt : kMislukt;
    r.afgebroken = soort == 2;
    if (soort == 3) r.onverwacht = Status::Error(fout::kDiskFull), r.onderwerp = "kb001.html";
    zet("UitslagNaRun", UitslagNaRun(r));
  }
  // The photos of step 2.
  for (const char* naam : {"a.jpg", "A.JPG", "c_TN.jpg", "c_tn.JPG", "a.jpeg", "jpg", "x.jpg.txt"}) {
    zet(S("IsFotoBestand ") + naam, IsFotoBestand(naam) ? "ja" : "nee");
  }
  zet("ZelfdeMap /a/Fotos /a/fotos/, /a/fotos /a/foto", S(ZelfdeMap("/a/Fotos", "/a/fotos/") ? "ja" : "nee") +
                                                          (ZelfdeMap("/a/fotos", "/a/foto") ? " ja" : " nee"));
  for (const bool fotostap : {true, false}) {
    for (const int rij : {-1, 0, 1, 2, 3}) {
      const FotoLijstKnoppen k = FotoLijstToestand(fotostap, rij, 3);
      zet(S("FotoLijstToestand ") + (fotostap ? "stap 2" : "stap 1") + ", rij " + N(rij) + " van 3",
          Aan({{"toevoegen", k.toevoegen}, {"omhoog", k.omhoog}, {"omlaag", k.omlaag}, {"verwijderen", k.verwijderen}}));
    }
  }
  for (const std::int64_t bytes : {0, 1023, 1024, 12697, 3355443}) zet("BestandsGrootteTekst", BestandsGrootteTekst(bytes));
  zet("FotoInfoTekst", FotoInfoTekst("img_0001.jpg", 4000, 3000, 3355443));
  zet("FotoInfoTekst", FotoInfoTekst("kapot.jpg", 0, 0, 9));
  zet("KopieerVraag", M(KopieerVraag()));
  zet("HernoemMelding", M(*HernoemMelding(3)));
  zet("KopieerFoutMelding", M(KopieerFoutMelding("/in/b.jpg", "/uit/b.jpg", Status::Error(fout::kDiskFull))));
  zet("VerwijderVraag", M(VerwijderVraag("zee.jpg")));
  zet("VerwijderFoutMelding", M(VerwijderFoutMelding("/x/zee.jpg", Status::Error(fout::kPermissionDenied))));
  zet("FotosHernoemen A.JPG naast a.jpg", M(*FotosHernoemen(tmp / "dubbel/", "Unknown (3.6.1)").fout));
  const char* const plannen[] = {"kopieren", "vervangen", "alleen lijst", "al in lijst", "geweigerd"};
  for (const auto& [bron, maximum] : {std::pair{"in/Nieuw.JPG", 10}, {"in/bestaat.jpg", 10}, {"uit/hier.jpg", 10},
                                      {"in/Lijst.jpg", 10}, {"in/x_tn.jpg", 10}, {"in/Nieuw.JPG", 1},
                                      {"in/Zee.HEIC", 10}, {"in/zee.heif.txt", 10}}) {
    const ToevoegPlan p = PlanToevoegen(tmp / bron, tmp / "uit/", {{"lijst.jpg", ""}}, maximum);
    zet(S("PlanToevoegen ") + bron + " tot " + N(maximum),
        S(plannen[static_cast<int>(p.soort)]) + " | " + p.naam + " | " + p.doel + " | " + M(p.melding));
  }
  // The colours, the options and the resize dialog.
  for (const KleurRol rol : {KleurRol::kTekstOpAchtergrond, KleurRol::kAchtergrond, KleurRol::kTekstInKader,
                             KleurRol::kKader}) {
    GalleryScript s;
    zet(KleurDialoogTitel(rol) + ", partner " + N(PartnerKleur(s, rol)), M(*KiesKleur(s, rol, PartnerKleur(s, rol))));
  }
  GalleryScript s;
  const auto kleuren = [&s] {
    return N(s.kleur_tekst_op_achtergrond) + " " + N(s.kleur_achtergrond) + " " + N(s.kleur_tekst_in_kader) + " " +
           N(s.kleur_kader);
  };
  // Only the pairs are compared: the text and the frame may both take 13421772.
  for (const KleurRol rol : {KleurRol::kTekstOpAchtergrond, KleurRol::kKader}) static_cast<void>(KiesKleur(s, rol, 13421772));
  zet("KiesKleur tekst op achtergrond en kader 13421772", kleuren());
  ProgramSettings ini;
  StandaardKleuren(ini, s);
  zet("StandaardKleuren zonder KBord.ini", kleuren());
  ini.kleur_tekst_op_achtergrond = "255";
  ini.kleur_achtergrond = "#0000FF";
  ini.kleur_tekst_in_kader = "x";
  ini.kleur_kader = "blauw";
  StandaardKleuren(ini, s);
  zet("StandaardKleuren 255 #0000FF x blauw", kleuren());
  // The samples follow what a set's style sheet does with the colours.
  for (const Namen& sets : {Namen{"Donker", "Klassiek"}, Namen{"Raster"}, Namen{}}) zet("StandaardSjabloon", N(StandaardSjabloon(sets)));
  for (const S css : {"body {\ncolor: #[KIEKBORDVELD=KLEURACHTERGROND];\nbackground-color: #[KIEKBORDVELD=KLEURTEKST];\n}\n"
                      "p { background-color: #[KIEKBORDVELD=KLEURACHTERGROND]; }\n/* x */ figcaption { background-color: "
                      "#[KIEKBORDVELD=KLEURTEKSTINKADER]; color: #[KIEKBORDVELD=KLEURKADER]33; }", "body { color: #336699 }", ""}) {
    const VoorbeeldKleuren v = KleurenVanSet(css, s);
    zet("KleurenVanSet " + N(static_cast<int>(css.size())), N(v.pagina_tekst) + " op " + N(v.pagina_vulling) + ", " + N(v.kader_tekst) + " op " + N(v.kader_vulling));
  }
  const auto opties = [&](const S& wat, const OptiesScherm& o) {
    zet(wat, Aan({{"ie", o.ie_dynamisch}, {"controlevraag", o.controlevraag}, {"backup", o.backup_bij_roteren},
                  {"laatste", o.opslaan_laatste}, {"ie aan", o.ie_dynamisch_aan}, {"programma aan", o.fotoprogramma_aan},
                  {"voorstellen", FotoprogrammaVoorstellen(o)}, {"rechtop", o.rechtop_kopieren},
                  {"zonder locatie", o.zonder_locatie}}) + " | '" + o.fotoprogramma + "'");
  };
  const UserPreferences twee_nullen{2, 0, 0, 0, "/usr/bin/gimp"};
  opties("OptiesBijOpenen nieuw, chromium", OptiesBijOpenen({}, true, "/usr/bin/chromium"));
  opties("OptiesBijOpenen nieuw, iexplore", OptiesBijOpenen({}, true, "C:\\Program Files\\IE\\iexplore.exe"));
  opties("OptiesBijOpenen 2 0 0 0 gimp", OptiesBijOpenen(twee_nullen, true, ""));
  opties("OptiesBijOpenen 2 0 0 0 gimp, zonder extern bewerken", OptiesBijOpenen(twee_nullen, false, ""));
  for (const bool aan : {false, true}) {
    const UserPreferences v = OptiesBijOk({aan, !aan, aan, aan, "/opt/krita", false, false, aan, !aan});
    zet(S("OptiesBijOk ") + (aan ? "1 0 1 1 1 0" : "0 1 0 0 0 1"),
        N(v.lopende_browser) + N(v.vraag_bij_afsluiten) + N(v.backup_bij_bewerken) + N(v.nieuw_in_laatste_dir) +
            N(v.rechtop_bij_kopieren) + N(v.zonder_locatie_bij_kopieren) + " " + v.foto_programma);
    for (const bool locatie : {false, true}) {
      UserPreferences kopie;
      kopie.rechtop_bij_kopieren = aan ? 1 : 0;
      kopie.zonder_locatie_bij_kopieren = locatie ? 1 : 0;
      zet(S("KopieenTekst ") + N(aan) + N(locatie), KopieenTekst(kopie));
    }
  }
  for (const S& pad : {tmp / "a:" + tmp / "b", tmp / "a:" + tmp / "c", tmp / "c", S(), tmp / "d", "::x:" + tmp / "a"}) {
    zet("StelFotoprogrammaVoor " + pad, StelFotoprogrammaVoor(pad));
  }
  for (const char* afmetingen : {"4000x3000", "3000x4000!", "1000x1000", "640x480", "Error"}) {
    for (const auto& [b, h] : {std::pair<std::int16_t, std::int16_t>{768, 1024}, {800, 600}, {1024, 0}, {0, 0}}) {
      const VerkleinModel m(afmetingen, {b, h, true, 0});
      zet(S("VerkleinModel ") + afmetingen + ", onthouden " + N(b) + "x" + N(h),
          N(m.huidige_breedte()) + "x" + N(m.huidige_hoogte()) + " " + m.orientatie() + " nieuw '" + m.breedte() +
              "'x'" + m.hoogte() + "'" + (m.OkAan() ? " OK" : ""));
    }
  }
  for (const S paar : {"99 500", "100 500", "500 99", "3999 2999", "4000 500", "500 3000", " 500", ". 500",
                       "99.9 500", "1.5.3 500", "1500.5 1125.5"}) {
    const S b = paar.substr(0, paar.find(' ')), h = paar.substr(paar.find(' ') + 1);
    VerkleinModel m("4000x3000", {0, 0, false, 2});
    m.BreedteGewijzigd(b);
    m.HoogteGewijzigd(h);
    const VerkleinOpdracht o = m.Opdracht();
    zet("VerkleinModel 4000x3000 '" + b + "' x '" + h + "'",
        S(m.OkAan() ? "OK " : "") + N(o.breedte) + "x" + N(o.hoogte) + " kwaliteit " + N(o.kwaliteit_code) +
            ", onthouden " + N(o.te_onthouden.breedte) + "x" + N(o.te_onthouden.hoogte) +
            (o.te_onthouden.verhouding ? " verhouding" : ""));
  }
  // Typed key by key into the box with the focus, which leads: the other box
  // follows in proportion, rounded down, for values between 99 and the size.
  VerkleinModel m("4000x3000", {0, 0, true, 0});
  const auto typ = [&](bool breedte, S tekst, bool focus = true) {
    if (focus) breedte ? m.BreedteKrijgtFocus() : m.HoogteKrijgtFocus();
    for (std::size_t i = 0; i <= tekst.size(); ++i) {
      breedte ? m.BreedteGewijzigd(tekst.substr(0, i)) : m.HoogteGewijzigd(tekst.substr(0, i));
    }
    zet(S(focus ? "typ " : "zonder focus ") + (breedte ? "breedte " : "hoogte ") + tekst, m.breedte() + "x" + m.hoogte());
  };
  typ(true, "1500", false);
  for (const char* tekst : {"150", "1001"}) typ(true, tekst);
  typ(false, m.hoogte(), false);
  for (const char* tekst : {"750", "99", "3000", "5000"}) typ(false, tekst);
  for (const char* tekst : {"99", "4000", "."}) typ(true, tekst);
  m = VerkleinModel("3000x4000", {1024, 768, false, 0});
  typ(true, "1500");
  m.ZetVerhouding(true);
  m.ZetKwaliteit(1);
  typ(true, "2000");
  zet("Opdracht", N(m.Opdracht().kwaliteit_code) + (m.Opdracht().te_onthouden.verhouding ? " verhouding" : ""));
  S tekens;
  for (char32_t teken = 0; teken < 128; ++teken) tekens += IsToegestaanTeken(teken) ? N(static_cast<int>(teken)) + " " : "";
  zet("IsToegestaanTeken (0-127, U+0661)", tekens + (IsToegestaanTeken(U'\u0661') ? "U+0661" : ""));
  for (const char* tekst : {"12.5", "1.2.3", "."}) zet(S("NumeriekeWaarde ") + tekst, N(NumeriekeWaarde(tekst)));
  for (const double waarde : {100.49, 101.5, 4e4, -4e4}) zet("AlsInt16 " + N(waarde), N(AlsInt16(waarde)));
  // The photo edit commands: which library ran shows in its message.
  FoutMeldingen meldingen;
  static_cast<void>(RoteerFoto("XP", tmp / "weg.jpg", kLinksom, false, meldingen));
  static_cast<void>(RoteerFoto("Unknown (3.6.1)", tmp / "weg.jpg", kLinksom, false, meldingen));
  static_cast<void>(VerkleinFoto(tmp / "weg.jpg", {200, 150, 0, {}}, false, meldingen));
  for (const Melding& melding : meldingen.meldingen()) zet("RoteerFoto XP, RoteerFoto, VerkleinFoto", M(melding));
  zet("FotoPad", FotoPad("/site", "a.jpg") + " " + FotoPad("/site/", "a.jpg"));
  for (const std::int16_t backup : {-1, 0, 1, 2}) zet("BackupVlag " + N(backup), BackupVlag({1, 1, 1, backup, ""}) ? "ja" : "nee");
  for (const auto richting : {kLinksom, kRechtsom}) zet("RoteerVraag", M(RoteerVraag(richting)));
  for (const char* programma : {"gimp", "leesmij"}) {
    const ExternBewerken e = ExternBewerkenOpdracht(tmp / programma, "/f.jpg");
    zet(S("ExternBewerken ") + programma, e.opdrachtregel + " | " + M(ExternStartFoutMelding(e)));
  }
  for (int i = 0; i < 16; ++i) {  // KBord.ini, a program set, a photo chosen, refresh switched on
    ini.verkleinen = ini.extern_bewerken = i & 8;
    const BewerkMenu b = BewerkMenuToestand(i & 2, ini, {1, 1, 1, 1, i & 4 ? "/usr/bin/gimp" : ""}, i & 1);
    zet("BewerkMenuToestand " +
            Aan({{"KBord.ini aan", i & 8}, {"programma", i & 4}, {"gekozen", i & 2}, {"vernieuwen", i & 1}}),
        Aan({{"roteren", b.roteren}, {"verkleinen", b.verkleinen}, {"extern", b.extern_bewerken},
             {"vernieuwen", b.vernieuwen}}));
  }
  // The script commands.
  for (const bool pad : {true, false}) zet("OpslaanVraag", M(OpslaanVraag(pad, pad ? kVoordatAnderScript : VoordatAfsluiten())));
  for (const char* pad : {"/home/An/Reis.KBS", "élan.KBS", "/D/Foto's/Vakantie.KBS", "/a/reis.txt"}) {
    zet(S("script ") + pad, WeergaveVorm(pad) + " | " + VensterTitel(pad, "Kiekbord 4.1 Pro") + " | " + ScriptBackupPad(pad));
  }
  ScriptBestand bestand;
  zet("ScriptBestand::Open", M(*bestand.Open(tmp / "weg.kbs")));
  for (const bool als : {false, true}) zet("ScriptBestand::Opslaan", M(*bestand.Opslaan({}, {}, tmp / "g/g.kbs", als)));

  WriteBytes(tmp / "regels.txt", uit);
  EXPECT_TRUE(test::GelijkAanGolden(test::TestDataDir() + "editor/regels.txt", tmp / "regels.txt", {{"@TMP@", tmp.path()}}));
}

TEST(PhotoList, RefreshMoveCopyRenameAndDelete) {
  TempDir map;
  for (const char* naam : {"b.jpg", "A.JPG", "a.jpg", "c_tn.jpg", "d.txt", "c.jpg"}) WriteBytes(map / naam, "x");
  EXPECT_EQ(FotosInMap(map.path()), (Namen{"a.jpg", "b.jpg", "c.jpg"}));
  EXPECT_TRUE(FotosInMap(map / "weg").empty());
  // Missing files drop out, newly copied photos come after the list's own;
  // an empty list takes the directory's photos, up to the maximum.
  Fotos fotos = {{"c.jpg", "Zee"}, {"weg.jpg", "Kwijt"}, {"a.jpg", ""}};
  EXPECT_EQ(VernieuwdeLijst(fotos, map.path(), {"a.jpg", "b.jpg"}, 100),
            (Fotos{{"c.jpg", "Zee"}, {"a.jpg", ""}, {"b.jpg", ""}}));
  EXPECT_EQ(VernieuwdeLijst({{"weg.jpg", ""}}, map.path(), {}, 2), (Fotos{{"a.jpg", ""}, {"b.jpg", ""}}));
  EXPECT_EQ((std::array{FotoOmhoog(fotos, 0), FotoOmhoog(fotos, 2), FotoOmlaag(fotos, 2), FotoOmlaag(fotos, 0),
                        FotoOmlaag(fotos, -1), FotoOmhoog(fotos, 7)}),
            (std::array{0, 1, 2, 1, -1, 7}));
  EXPECT_EQ(fotos, (Fotos{{"a.jpg", ""}, {"c.jpg", "Zee"}, {"weg.jpg", "Kwijt"}}));
  // Dragging moves one photo past the others; a removed one comes back in its place once.
  EXPECT_EQ((std::array{FotoVerplaatsen(fotos, 0, 2), FotoVerplaatsen(fotos, 2, 0), FotoVerplaatsen(fotos, 1, 3)}),
            (std::array{2, 0, 1}));
  EXPECT_EQ((std::array{FotoTerugzetten(fotos, 1, {"b.jpg", "Duin"}, 9), FotoTerugzetten(fotos, 9, {"b.jpg", ""}, 9),
                        FotoTerugzetten(fotos, 0, {"d.jpg", ""}, 4)}),
            (std::array{1, -1, -1}));
  EXPECT_EQ(fotos, (Fotos{{"a.jpg", ""}, {"b.jpg", "Duin"}, {"c.jpg", "Zee"}, {"weg.jpg", "Kwijt"}}));
  EXPECT_EQ(ZonderBijschriftTekst(fotos) + "|" + ZonderBijschriftTekst({{"b.jpg", "Duin"}}) + "|" + ZonderBijschriftTekst({}),
            "1 foto('s) zonder bijschrift|Alle foto's hebben een bijschrift.|");

  // Photos are copied into the output directory under lower-case names.
  TempDir in, uit, vol;
  for (const char* naam : {"A.JPG", "b.jpg", "c_TN.jpg", "d.txt", "e.jpg"}) WriteBytes(in / naam, naam);
  EXPECT_EQ(FotosKopieren(in.path(), uit.path(), 2).aantal, 2);
  EXPECT_EQ(BestandenIn(uit.path()), (Namen{"a.jpg", "b.jpg"}));
  {  // An error ends the copy at that file; the files before it stay.
    test::FoutenSchijf schijf;
    schijf.Faal(test::FoutenSchijf::kSchrijven, "*/b.jpg", fout::kDiskFull);
    ScopedFileSystem scoped(schijf);
    EXPECT_EQ(FotosKopieren(in.path(), vol.path(), 100).fout,
              KopieerFoutMelding(in / "b.jpg", vol / "b.jpg", Status::Error(fout::kDiskFull)));
  }
  EXPECT_EQ(BestandenIn(vol.path()), Namen{"a.jpg"});
  // Renamed to lower case, on "Vista" through a temporary name, never over another photo.
  for (const char* os_naam : {"Unknown", "Vista"}) {
    WriteBytes(uit / (S(os_naam) + ".JPG"), "x");
    EXPECT_EQ(FotosHernoemen(uit.path(), os_naam).aantal, 1) << os_naam;
  }
  WriteBytes(uit / "A.JPG", "groot");
  EXPECT_EQ(FotosHernoemen(uit.path(), "Unknown").aantal, 0);
  EXPECT_EQ(BestandenIn(uit.path()), (Namen{"A.JPG", "a.jpg", "b.jpg", "unknown.jpg", "vista.jpg"}));
  // A photo is deleted with its thumbnail.
  for (const char* naam : {"zee.jpg", "zee_tn.jpg", "zeer.jpg"}) WriteBytes(vol / naam, naam);
  EXPECT_TRUE(FotoWissen(vol.path(), "zee.jpg").ok());
  EXPECT_EQ(BestandenIn(vol.path()), (Namen{"a.jpg", "zeer.jpg"}));
  EXPECT_EQ(FotoWissen(vol.path(), "zee.jpg").number(), fout::kFileNotFound);
}

TEST(ScriptCommands, OpenKeepsABackupAndOnlyARealChangeCountsUntilItIsSaved) {
  using namespace std::chrono;
  constexpr year_month_day kVandaag{year{2026}, month{11}, day{21}}, kMorgen{year{2026}, month{11}, day{22}};
  TempDir dir;
  GalleryScript script;
  script.fotos = {{"foto_1.jpg", "Strand"}};
  ScriptBestand schrijver, bestand;
  ASSERT_EQ(schrijver.Opslaan(script, kVandaag, dir / "Reis.KBS", false), std::nullopt);
  EXPECT_NE(ReadBytes(dir / "Reis.KBS").find("Aanmaakdatum=zaterdag 21 november 2026\r\n"), std::string::npos);
  ASSERT_EQ(bestand.Open(dir / "Reis.KBS"), std::nullopt);
  EXPECT_EQ(ReadBytes(dir / "reis.bak"), ReadBytes(dir / "Reis.KBS"));
  EXPECT_FALSE(bestand.Gewijzigd(script, kMorgen));  // the date of writing is no change
  script.titel = "Zee";
  EXPECT_TRUE(bestand.Gewijzigd(script, kVandaag));
  // A failed open keeps the saved copy; a failed save keeps the change unsaved.
  EXPECT_TRUE(bestand.Open(dir / "weg.kbs").has_value());
  EXPECT_TRUE(bestand.Opslaan(script, kVandaag, dir / "geen/g.kbs", false).has_value());
  EXPECT_TRUE(bestand.Gewijzigd(script, kVandaag));
  script.titel = "";
  EXPECT_FALSE(bestand.Gewijzigd(script, kVandaag));
}

std::string Maat(const std::string& pad) {
  std::string maat = BepaalAfmetingen(pad);
  if (maat.ends_with('!')) maat.pop_back();
  return maat;
}

TEST(PhotoEdit, RotationWithEitherLibraryAndShrinkAtTheChosenQualityKeepTheFirstBackup) {
  TempDir dir;
  const std::string foto = dir / "foto.jpg", origineel = test::CameraJpeg(480, 360);
  for (const char* os_naam : {"XP", "Unknown (3.6.1)"}) {
    WriteBytes(foto, origineel);
    std::filesystem::remove_all(dir / "Backup");
    FoutMeldingen meldingen;
    ASSERT_TRUE(RoteerFoto(os_naam, foto, kLinksom, false, meldingen).ok());
    EXPECT_FALSE(std::filesystem::exists(dir / "Backup")) << os_naam;
    ASSERT_TRUE(RoteerFoto(os_naam, foto, kRechtsom, true, meldingen).ok());
    ASSERT_TRUE(RoteerFoto(os_naam, foto, kRechtsom, true, meldingen).ok());
    EXPECT_EQ(Maat(foto) + " " + Maat(dir / "Backup/foto.jpg"), "360x480 360x480") << os_naam;
  }
  std::filesystem::remove_all(dir / "Backup");
  std::size_t groter = SIZE_MAX;
  for (const int code : {0, 1, 2}) {  // quality 100, 80, 60: ever smaller files
    WriteBytes(foto, origineel);
    FoutMeldingen meldingen;
    ASSERT_TRUE(VerkleinFoto(foto, {320, 199, code, {}}, code == 2, meldingen).ok());
    EXPECT_EQ(Maat(foto), "320x199");  // the proportions are the dialog's business
    EXPECT_LT(ReadBytes(foto).size(), groter);
    groter = ReadBytes(foto).size();
  }
  EXPECT_EQ(Maat(dir / "Backup/foto.jpg"), "480x360");
}

}  // namespace
}  // namespace kiekbord
