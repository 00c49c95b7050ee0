#include "editor/wizard_rules.h"

#include <array>
#include <cstdio>

#include "base/program_info.h"
#include "editor/photo_import.h"
#include "base/file_system.h"
#include "base/text.h"
#include "generator/generation_run.h"

namespace kiekbord {
namespace {

constexpr const char* kRegeleinde = "\r\n";
constexpr const char* kBekijkenVraag = "Wilt u het resultaat nu bekijken?";

// A hidden file written and deleted again to learn whether the output
// directory takes new files.
constexpr const char* kSchrijfProef = ".kiekbord-schrijfproef";

MapUitkomst Uitkomst(MapUitkomst::Soort soort, std::string tekst) {
  MapUitkomst uitkomst;
  uitkomst.soort = soort;
  uitkomst.melding = {MeldingSoort::kWaarschuwing, std::move(tekst)};
  return uitkomst;
}

std::string ZonderSlotStreep(std::string directory) {
  while (directory.size() > 1 && directory.back() == '/') directory.pop_back();
  return directory;
}

}  // namespace

std::string StapTitel(int stap) {
  static constexpr std::array<const char*, 3> kTitels = {"1. Algemeen", "2. Fotobijschriften", "3. Instellingen"};
  if (stap < kEersteStap || stap > kLaatsteStap) return {};
  return kTitels[static_cast<std::size_t>(stap - 1)];
}

std::string StapKopTitel(int stap) { return "Stap " + std::to_string(stap) + " van " + std::to_string(kLaatsteStap); }

std::string StapUitleg(int stap) {
  static constexpr std::array<const char*, 3> kUitleg = {
      "Geef de kiekbord een titel en kies de map met uw foto's en de map waarin de kiekbord komt.",
      "Zet de foto's in volgorde en geef elke foto een bijschrift (Enter: volgende foto).",
      "Kies hoe de kiekbord eruitziet en klik op Voltooien om hem aan te maken."};
  if (stap < kEersteStap || stap > kLaatsteStap) return {};
  return kUitleg[static_cast<std::size_t>(stap - 1)];
}

std::string HelpStapTitel(int stap) { return "Stap &" + StapTitel(stap); }

StapToestand ToestandVoorStap(int stap) {
  StapToestand t;
  t.vorige = stap == 2 || stap == 3;
  t.volgende = stap == 1 || stap == 2;
  t.voltooien = stap == 3;
  t.script_openen = stap == 1;
  t.bewerken = stap == 2;
  return t;
}

VolgendeVanStap1 PlanVolgende(const std::string& invoer_dir, const std::string& uitvoer_dir) {
  VolgendeVanStap1 plan;
  const bool zelfde = ZelfdeMap(invoer_dir, uitvoer_dir);
  plan.kopieer_vraag = !BevatJpgBestanden(uitvoer_dir) && !zelfde;
  plan.hernoemen = zelfde;
  return plan;
}

MapUitkomst ControleerInvoerMap(const std::string& directory) {
  using Soort = MapUitkomst::Soort;
  if (TrimSpaces(directory).empty()) return Uitkomst(Soort::kLeeg, "Vul de invoerdirectory in: de directory met uw foto's.");
  if (Fs().FileExists(ZonderSlotStreep(directory))) {
    return Uitkomst(Soort::kGeenMap, "Invoerdirectory " + directory + " is geen directory maar een bestand.");
  }
  if (!Fs().DirectoryExists(directory)) {
    return Uitkomst(Soort::kOntbreekt, "Invoerdirectory " + directory + " bestaat niet." + kRegeleinde +
                                           "Kies met 'Bladeren...' de directory met uw foto's.");
  }
  return {};
}

MapUitkomst ControleerUitvoerMap(const std::string& directory) {
  using Soort = MapUitkomst::Soort;
  if (TrimSpaces(directory).empty()) {
    return Uitkomst(Soort::kLeeg, "Vul de uitvoerdirectory in: de directory waarin de kiekbord komt.");
  }
  if (Fs().FileExists(ZonderSlotStreep(directory))) {
    return Uitkomst(Soort::kGeenMap, "Uitvoerdirectory " + directory + " is geen directory maar een bestand.");
  }
  if (!Fs().DirectoryExists(directory)) {
    return Uitkomst(Soort::kOntbreekt, "Uitvoerdirectory " + directory + " bestaat niet.");
  }
  const std::string proef = WithTrailingSlash(directory) + kSchrijfProef;
  Status status = Fs().WriteFile(proef, "");
  if (status.ok()) status = Fs().DeleteFile(proef);
  if (!status.ok()) {
    return Uitkomst(Soort::kNietSchrijfbaar,
                    "In uitvoerdirectory " + directory + " kunnen geen bestanden worden aangemaakt" + kRegeleinde +
                        "(fout " + std::to_string(status.number()) + ": " + status.description() + ")." +
                        kRegeleinde + "Kies een directory waarin u mag schrijven.");
  }
  return {};
}

Melding UitvoerMapAanmakenVraag(const std::string& directory) {
  return {MeldingSoort::kVraag, "Uitvoerdirectory " + directory + " bestaat niet." + kRegeleinde + kRegeleinde +
                                    "Wilt u deze directory nu aanmaken?"};
}

Melding UitvoerMapNietAangemaaktMelding(const std::string& directory, const Status& status) {
  return {MeldingSoort::kFout, "Uitvoerdirectory " + directory + " kan niet worden aangemaakt" + kRegeleinde +
                                   "(fout " + std::to_string(status.number()) + ": " + status.description() + ")."};
}

Status MaakMappen(const std::string& directory) {
  const std::string doel = ZonderSlotStreep(directory);
  if (doel.empty() || Fs().DirectoryExists(doel)) return Status::Ok();
  const std::size_t streep = doel.find_last_of('/');
  if (streep != std::string::npos && streep > 0) {
    if (const Status ouder = MaakMappen(doel.substr(0, streep)); !ouder.ok()) return ouder;
  }
  return Fs().CreateDirectory(doel);
}

Melding EerstOpslaanVraag() {
  return {MeldingSoort::kVraag, std::string("Om een nieuwe kiekbord aan te maken, moeten") + kRegeleinde +
                                    "de ingevoerde gegevens eerst als script worden opgeslagen." + kRegeleinde +
                                    kRegeleinde + "Wilt u de gegevens nu opslaan?"};
}

Afronding AfrondingNaRun(bool gelukt, const ProgramSettings& settings, const std::string& uitvoer_dir,
                         const std::string& script_pad) {
  Afronding a;
  if (!gelukt) {
    a.melding = {MeldingSoort::kWaarschuwing,
                 std::string("Fout tijdens aanmaken kiekbord.") + kRegeleinde + "Wilt u het logbestand bekijken?"};
    a.is_vraag = true;
    a.adres = LogPad(script_pad);
    a.log = true;
    return a;
  }
  const std::string& ext = settings.sjabloon_type;
  if (StartsWith(ext, ".htm")) {
    a.melding = {MeldingSoort::kVraag, std::string("De kiekbord is aangemaakt.") + kRegeleinde + kBekijkenVraag};
    a.is_vraag = true;
    a.adres = WithTrailingSlash(uitvoer_dir) + "index" + ext;
    return a;
  }
  const std::string aangemaakt = "De kiekbord is aangemaakt (bestandstype '" + ext + "').";
  if (CharCount(settings.sjabloon_host) < 2) {
    a.melding = {MeldingSoort::kInformatie, aangemaakt};
    return a;
  }
  a.melding = {MeldingSoort::kVraag, aangemaakt + kRegeleinde + kBekijkenVraag};
  a.is_vraag = true;
  a.adres = WithTrailingSlash(settings.sjabloon_host) + "index" + ext;
  return a;
}

std::string UitslagNaRun(const SiteResultaat& resultaat) {
  if (resultaat.afgebroken) return "Generatie afgebroken door de gebruiker.";
  if (resultaat.failed == kGelukt) return "Normaal einde.";
  if (!resultaat.onverwacht) return "Abnormaal einde.";
  std::string uitslag = "Abnormaal einde: " + resultaat.onverwacht->description();
  if (!resultaat.onderwerp.empty()) uitslag += " (" + resultaat.onderwerp + ")";
  return uitslag + ".";
}

std::string BekijkKnopTekst(const Afronding& afronding) {
  if (!afronding.is_vraag) return "";
  return afronding.log ? "&Logbestand bekijken" : "&Resultaat bekijken";
}

Melding AfsluitenVraag() {
  return {MeldingSoort::kVraag, "Wilt u " + std::string(kProgramTitle) + " afsluiten?"};
}

HelpAdres HelpPaginaAdres(const ProgramSettings& settings, const std::string& pagina) {
  HelpAdres h;
  if (StartsWith(Lower(TrimSpaces(settings.help_type)), ".htm")) {
    h.adres = settings.help_dir + pagina + settings.help_type;
    return h;
  }
  if (CharCount(settings.help_host) < 2) {
    h.fout = Melding{MeldingSoort::kWaarschuwing,
                     std::string("Hostname niet (goed) gedefinieerd!") + kRegeleinde + "Helppagina kan niet worden gestart."};
    return h;
  }
  h.adres = settings.help_host + pagina + settings.help_type;
  return h;
}

std::string HelpPaginaVanStap(int stap) {
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "index%02d", stap);
  return buffer;
}

std::string OpslaanAlsMap(const std::string& script_pad, bool nieuw_in_uitvoer_dir, const std::string& uitvoer_dir,
                          const std::string& laatste_dir, const std::string& standaard_dir) {
  if (!script_pad.empty()) return DirectoryOf(script_pad);
  if (nieuw_in_uitvoer_dir && Fs().DirectoryExists(uitvoer_dir)) return WithTrailingSlash(uitvoer_dir);
  return laatste_dir.empty() ? standaard_dir : laatste_dir;
}

}  // namespace kiekbord
