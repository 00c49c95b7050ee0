// kiekbord-maak: runs the generation of a saved gallery script without the
// window, printing each log line as it is written.

#include <cstdio>
#include <iostream>
#include <string>
#include <string_view>

#include "app/program_directory.h"
#include "base/program_info.h"
#include "app/program_settings.h"
#include "cli/script_controle.h"
#include "base/text.h"
#include "generator/generation_run.h"

namespace {

using namespace kiekbord;

constexpr int kExitOk = 0;
constexpr int kExitFailed = 1;
constexpr int kExitUsage = 2;

void PrintUsage(std::ostream& out) {
  out << "Gebruik: kiekbord-maak SCRIPT.kbs\n"
         "        kiekbord-maak --controleer SCRIPT.kbs\n"
         "\n"
         "Maakt de kiekbord van een opgeslagen script (.kbs): titelpagina, overzicht,\n"
         "fotopagina's, thumbnails en opmaak in de uitvoermap van het script. Het\n"
         "logbestand komt naast het script, met de extensie .log.\n"
         "\n"
         "Opties:\n"
         "  --controleer  het script lezen zoals het venster het opent en tonen wat\n"
         "                het inleest en zou melden; er wordt niets geschreven\n"
         "  --help        deze tekst tonen\n"
         "  --version     de versie tonen\n"
         "\n"
         "Afsluitcode: 0 na \"Normaal einde.\", 1 na \"Abnormaal einde.\", een\n"
         "onverwachte fout of een bezette uitvoermap, 2 bij onjuist gebruik. Met\n"
         "--controleer: 0 als het script gelezen is, 1 als het niet te lezen is.\n";
}

int Generate(const std::string& script_path) {
  if (Lower(script_path.size() >= 4 ? script_path.substr(script_path.size() - 4) : script_path) != ".kbs") {
    // The log would be written over the file given.
    std::cerr << "Bestand '" << script_path << "' heeft onjuist type.\n"
              << "Het bestandstype moet '.kbs' zijn.\n";
    return kExitUsage;
  }
  const ProgramSettings settings = LeesProgrammaInstellingen(FindProgramDirectory(), HomeDirectory());
  GenerationLog log([](const std::string& line) { std::cout << line << '\n' << std::flush; });
  StderrMelder melder;
  const SiteOmgeving omgeving{settings, log, melder};
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
  if (argc != 2) {
    PrintUsage(std::cerr);
    return kExitUsage;
  }
  const std::string_view argument = argv[1];
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
  return Generate(std::string(argument));
}
