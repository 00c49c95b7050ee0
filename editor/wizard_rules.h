// The wizard's rules without a window: which step shows what, what leaving
// step 1 asks and does, the directory checks, the finish command's questions
// and the help pages.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "app/program_settings.h"
#include "base/melding.h"
#include "base/status.h"
#include "generator/generation_run.h"

namespace kiekbord {

inline constexpr int kEersteStap = 1;
inline constexpr int kLaatsteStap = 3;

// The caption of a step's frame: "1. Algemeen", "2. Fotobijschriften",
// "3. Instellingen".
std::string StapTitel(int stap);

// The header over a step, as a wizard page's title and subtitle: "Stap 1
// van 3" and a one-line instruction of what to do on it.
std::string StapKopTitel(int stap);
std::string StapUitleg(int stap);

// The help item's caption for a step: "Stap &" + the step's frame caption.
std::string HelpStapTitel(int stap);

// What the buttons and menus allow on a step.
struct StapToestand {
  bool vorige = false;
  bool volgende = false;
  bool voltooien = false;
  bool script_openen = false;  // open and the recent entry: step 1 only
  bool bewerken = false;       // the photo menu: step 2 only
};
StapToestand ToestandVoorStap(int stap);

// --- Leaving step 1 ------------------------------------------------------------

// What Next does on step 1 for the two directory texts.
struct VolgendeVanStap1 {
  bool kopieer_vraag = false;  // ask the copy question
  bool hernoemen = false;      // run the lower-case rename in the output directory
};
VolgendeVanStap1 PlanVolgende(const std::string& invoer_dir, const std::string& uitvoer_dir);

// --- Directory checks ----------------------------------------------------------

// The directory fields' tooltips and the titles of their choosers.
inline constexpr std::string_view kInvoerDirUitleg = "De directory met uw eigen foto's";
inline constexpr std::string_view kUitvoerDirUitleg = "De directory waarin de foto's, thumbnails en pagina's komen";
inline constexpr std::string_view kMapBestaatNiet = "Deze directory bestaat niet.";
inline constexpr std::string_view kInvoerDirKiezenTitel = "Kiekbord - Invoerdirectory kiezen";
inline constexpr std::string_view kUitvoerDirKiezenTitel = "Kiekbord - Uitvoerdirectory kiezen";

// The folder "save as" starts in: the script's own folder; for a new script
// the output directory when the preference says so and it exists; else the
// last folder used, or the default directory.
std::string OpslaanAlsMap(const std::string& script_pad, bool nieuw_in_uitvoer_dir, const std::string& uitvoer_dir,
                          const std::string& laatste_dir, const std::string& standaard_dir);

// The check of a directory text; `melding` is what Next tells the user when
// the directory is not fit for its role.
struct MapUitkomst {
  enum class Soort { kGoed, kLeeg, kOntbreekt, kGeenMap, kNietSchrijfbaar };
  Soort soort = Soort::kGoed;
  Melding melding{MeldingSoort::kWaarschuwing, ""};
  bool goed() const { return soort == Soort::kGoed; }
};

// The input directory must exist.
MapUitkomst ControleerInvoerMap(const std::string& directory);
// The output directory must exist and take new files (a probe file is
// written and deleted through the file seam).
MapUitkomst ControleerUitvoerMap(const std::string& directory);

// The question when the output directory does not exist yet, and the error
// when it can't be made.
Melding UitvoerMapAanmakenVraag(const std::string& directory);
Melding UitvoerMapNietAangemaaktMelding(const std::string& directory, const Status& status);

// Creates `directory` and any missing parents.
Status MaakMappen(const std::string& directory);

// --- Finish --------------------------------------------------------------------

// The question when a new gallery must be saved before it is generated.
Melding EerstOpslaanVraag();

// What the finish command offers after a run.
struct Afronding {
  Melding melding{MeldingSoort::kInformatie, ""};
  bool is_vraag = false;   // yes/no; otherwise an information message only
  std::string adres;       // opened on yes: the result, or the log when the run failed
  bool log = false;        // `adres` is the log file, opened in the text editor
};
Afronding AfrondingNaRun(bool gelukt, const ProgramSettings& settings, const std::string& uitvoer_dir,
                         const std::string& script_pad);

// The result line the progress dialog ends on: "Normaal einde.", "Generatie
// afgebroken door de gebruiker.", or "Abnormaal einde." with what failed
// when the run was cut off ("Abnormaal einde: Disk full (kb001.html).").
std::string UitslagNaRun(const SiteResultaat& resultaat);

// The button that answers the finish question with yes: "&Resultaat
// bekijken", "&Logbestand bekijken" for the log, or none ("") when the
// finish only informs.
std::string BekijkKnopTekst(const Afronding& afronding);

// --- Close ---------------------------------------------------------------------

// "Wilt u Kiekbord afsluiten?"
Melding AfsluitenVraag();

// --- Help pages ----------------------------------------------------------------

// The address of help page `pagina` ("index", "index03"): a local file when
// the help file type begins with ".htm", else the help host's page. Without
// a usable host the message "Hostname niet (goed) gedefinieerd!" comes back
// instead.
struct HelpAdres {
  std::string adres;
  std::optional<Melding> fout;
};
HelpAdres HelpPaginaAdres(const ProgramSettings& settings, const std::string& pagina);

// The help page of a wizard step: "index" + the step as two digits.
std::string HelpPaginaVanStap(int stap);

}  // namespace kiekbord
