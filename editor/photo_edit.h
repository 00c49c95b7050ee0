// The main window's photo edit commands without widgets: the photo they work
// on, the rotate question, which library turns the photo, the backup flag,
// the command line of the external photo program, and which edit items of
// the photo menu are enabled.
//
// The image operations report their own failures to the reporter they are
// handed; `FoutMeldingen` gathers those reports while a command runs so the
// window can show them once the operation has returned.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/program_settings.h"
#include "app/user_preferences.h"
#include "editor/resize_rules.h"
#include "base/melding.h"
#include "base/status.h"
#include "base/failure_report.h"

namespace kiekbord {

// The direction texts of the two rotate commands.
inline constexpr std::string_view kLinksom = "linksom";
inline constexpr std::string_view kRechtsom = "rechtsom";

// The photo an edit command works on: the output directory, with a "/"
// added when it lacks one, + the selected photo's file name.
std::string FotoPad(const std::string& uitvoer_dir, const std::string& naam);

// "Foto linksom roteren?" (question icon).
Melding RoteerVraag(std::string_view richting);

// Rotating and shrinking make a backup first when the backup preference is
// greater than 0.
bool BackupVlag(const UserPreferences& voorkeuren);

// Turns the photo a quarter turn, "linksom" anticlockwise: with the smooth
// library when the main window's stored system name is "XP" or "Vista",
// otherwise with the pixel-buffer library. Returns the operation's status;
// a failure has been reported to `melder` and leaves the photo as it was.
Status RoteerFoto(const std::string& os_naam, const std::string& foto_pad, std::string_view richting,
                  bool maak_backup, FoutMelder& melder);

// Shrinks the photo to the size and quality of `opdracht`, always with the
// smooth library. Failures as for RoteerFoto.
Status VerkleinFoto(const std::string& foto_pad, const VerkleinOpdracht& opdracht, bool maak_backup,
                    FoutMelder& melder);

// The external photo program started with the photo: the program, its one
// argument, and the command line as the user would type it
// ("\"program\" \"photo\"").
struct ExternBewerken {
  std::string programma;
  std::vector<std::string> argumenten;
  std::string opdrachtregel;
};
ExternBewerken ExternBewerkenOpdracht(const std::string& programma, const std::string& foto_pad);

// The system's error when the program would not start: 53 "File not found"
// when no file of that name exists, else 70 "Permission denied" (a file
// that is no program), shown as "Fout 53 tijdens starten fotoprogramma
// <program>." + line break + "(File not found)" (error icon).
Melding ExternStartFoutMelding(const ExternBewerken& opdracht);

// Which edit items of the photo menu are enabled. `foto_gekozen`: the photo
// list has a selection on step 2. `vernieuwen_aangezet`: an external edit
// has been started since the last refresh.
struct BewerkMenu {
  bool roteren = false;
  bool verkleinen = false;       // and the program setting Verkleinen
  bool extern_bewerken = false;  // and ExternBewerken, and a program set
  bool vernieuwen = false;
};
BewerkMenu BewerkMenuToestand(bool foto_gekozen, const ProgramSettings& settings, const UserPreferences& voorkeuren,
                              bool vernieuwen_aangezet);

// Gathers the failure reports it is handed as warning messages (lines
// separated by CR LF), in the order they came.
class FoutMeldingen : public FoutMelder {
 public:
  void Meld(const std::string& tekst) override;
  const std::vector<Melding>& meldingen() const { return meldingen_; }

 private:
  std::vector<Melding> meldingen_;
};

}  // namespace kiekbord
