// kiekbord-maak: runs the generation of a saved gallery script without the
// window, printing each log line as it is written; on request it first
// turns the script's photos upright and removes their location.

#include <cstdio>
#include <iostream>
#include <string>
#include <string_view>

#include "app/program_directory.h"
#include "base/file_system.h"
#include "base/keyed_text_file.h"
#include "base/line_table.h"
#include "base/program_info.h"
#include "app/program_settings.h"
#include "app/user_preferences.h"
#include "cli/script_controle.h"
#include "base/text.h"
#include "gallery/gallery_script.h"
#include "generator/generation_run.h"
#include "images/straighten.h"

namespace {

using namespace kiekbord;

constexpr int kExitOk = 0;
constexpr int kExitFailed = 1;
constexpr int kExitUsage = 2;

void PrintUsage(std::ostream& out) {
  out << "Gebruik: kiekbord-maak SCRIPT.kbs\n"
         "        kiekbord-maak [--rechtop] [--zonder-locatie] SCRIPT.kbs\n"
         "        kiekbord-maak --controleer SCRIPT.kbs\n"
         "\n"
         "Maakt de kiekbord van een opgeslagen script (.kbs): titelpagina, overzicht,\n"
         "fotopagina's, thumbnails en opmaak in de uitvoermap van het script. Het\n"
         "logbestand komt naast het script, met de extensie .log.\n"
         "\n"
         "Opties:\n"
         "  --rechtop         eerst de foto's van het script in de uitvoermap rechtop\n"
         "                    zetten zoals de camera ze opsloeg (zonder kwaliteitsverlies;\n"
         "                    een rand van minder dan 16 pixels kan wegvallen)\n"
         "  --zonder-locatie  eerst de locatie (GPS-gegevens) uit die foto's halen\n"
         "                    Beide melden elke gewijzigde foto; de eerste keer komt\n"
         "                    een kopie van de foto in de map Backup, als in het\n"
         "                    venster bij Opties de backup aan staat (standaard).\n"
         "  --controleer  het script lezen zoals het venster het opent en tonen wat\n"
         "                het inleest en zou melden; er wordt niets geschreven\n"
         "  --help        deze tekst tonen\n"
         "  --version     de versie tonen\n"
         "\n"
         "Afsluitcode: 0 na \"Normaal einde.\", 1 na \"Abnormaal einde.\", een\n"
         "onverwachte fout of een bezette uitvoermap, 2 bij onjuist gebruik. Met\n"
         "--controleer: 0 als het script gelezen is, 1 als het niet te lezen is.\n";
}

// Turns the photos the script names upright and/or removes their location,
// in its output directory, before the run. A script or photo that cannot be
// read is left to the run, which reports it in its log.
void SchoonFotosOp(const std::string& script_path, const OpschoonOpdracht& opdracht) {
  LineTable script(capaciteit::kScript);
  if (!LeesRegels(script_path, script, false).ok()) return;
  using namespace script_sleutel;
  const std::string map = WithTrailingSlash(LeesWaarde(script, kAlgemeen, kUitvoerDir, ""));
  const double aantal = LeadingNumber(LeesWaarde(script, kAlgemeen, kAantalFotos, "0"));
  for (const long long nummer : FotoSectieNummers(script, aantal)) {
    const std::string naam = LeesWaarde(script, FotoSectie(nummer), kFoto, "");
    if (!EndsWith(naam, ".jpg") || !IsPlainName(naam) || !Fs().FileExists(map + naam)) continue;
    OpschoonUitkomst uitkomst;
    const Status status = SchoonFotoOp(map + naam, opdracht, uitkomst);
    if (!status.ok()) {
      std::cerr << OpschoonFoutRegel(naam, status) << '\n';
      continue;
    }
    for (const std::string& regel : OpschoonRegels(naam, uitkomst)) std::cout << regel << '\n';
  }
  std::cout << std::flush;
}

int Generate(const std::string& script_path, const OpschoonOpdracht& opschoning) {
  if (Lower(script_path.size() >= 4 ? script_path.substr(script_path.size() - 4) : script_path) != ".kbs") {
    // The log would be written over the file given.
    std::cerr << "Bestand '" << script_path << "' heeft onjuist type.\n"
              << "Het bestandstype moet '.kbs' zijn.\n";
    return kExitUsage;
  }
  const ProgramSettings settings = LeesProgrammaInstellingen(FindProgramDirectory(), HomeDirectory());
  GenerationLog log([](const std::string& line) { std::cout << line << '\n' << std::flush; });
  StderrMelder melder;
  SiteOmgeving omgeving{settings, log, melder};
  // The photos are changed only while the run holds the output directory:
  // a run turned away because another one works there leaves them alone.
  if (opschoning.rechtop || opschoning.zonder_locatie) {
    omgeving.na_vergrendelen = [&script_path, &opschoning] { SchoonFotosOp(script_path, opschoning); };
  }
  const SiteResultaat result = MaakSite(script_path, omgeving);
  if (!result.geweigerd.empty()) std::cerr << result.geweigerd << "\n";
  if (result.onverwacht) {
    std::cerr << "Onverwachte fout " << result.onverwacht->number() << " (" << result.onverwacht->description()
              << ")";
    if (!result.onderwerp.empty()) std::cerr << " bij " << result.onderwerp;
    std::cerr << "; het logbestand " << LogPad(script_path) << " is onvolledig.\n";
  }
  return result.failed == kGelukt ? kExitOk : kExitFailed;
}

int Controleer(const std::string& script_path) {
  try {
    const ProgramSettings settings = LeesProgrammaInstellingen(FindProgramDirectory(), HomeDirectory());
    return ControleerScript(script_path, settings, std::cout) == 0 ? kExitOk : kExitFailed;
  } catch (const std::exception& error) {
    std::cerr << "Onverwachte fout bij het controleren van " << script_path << ": " << error.what() << "\n";
    return kExitFailed;
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && std::string_view(argv[1]) == "--controleer") return Controleer(argv[2]);
  // The first-edit backup follows the window's backup preference, as the
  // rotate command does.
  OpschoonOpdracht opschoning;
  opschoning.maak_backup = LeesVoorkeurenBestand(VoorkeurenBestand(HomeDirectory())).backup_bij_bewerken > 0;
  int eerste = 1;
  for (; eerste < argc; ++eerste) {
    const std::string_view optie = argv[eerste];
    if (optie == "--rechtop") {
      opschoning.rechtop = true;
    } else if (optie == "--zonder-locatie") {
      opschoning.zonder_locatie = true;
    } else {
      break;
    }
  }
  if (argc - eerste != 1) {
    PrintUsage(std::cerr);
    return kExitUsage;
  }
  const std::string_view argument = argv[eerste];
  if (argument == "--help" || argument == "-h") {
    PrintUsage(std::cout);
    return kExitOk;
  }
  if (argument == "--version") {
    std::cout << ProgramCaption() << " (revisie " << BuildRevision() << ")\n";
    return kExitOk;
  }
  if (StartsWith(argument, "--")) {
    std::cerr << "Onbekende optie: " << argument << "\n\n";
    PrintUsage(std::cerr);
    return kExitUsage;
  }
  return Generate(std::string(argument), opschoning);
}
