#include "editor/photo_edit.h"

#include "base/file_system.h"
#include "base/text_helpers.h"
#include "images/library_choice.h"
#include "images/pixel_edit.h"
#include "images/smooth_library.h"

namespace kiekbord {

std::string FotoPad(const std::string& uitvoer_dir, const std::string& naam) {
  return WithTrailingSlash(uitvoer_dir) + naam;
}

Melding RoteerVraag(std::string_view richting) {
  return {MeldingSoort::kVraag, "Foto " + std::string(richting) + " roteren?"};
}

bool BackupVlag(const UserPreferences& voorkeuren) { return voorkeuren.backup_bij_bewerken > 0; }

Status RoteerFoto(const std::string& os_naam, const std::string& foto_pad, std::string_view richting,
                  bool maak_backup, FoutMelder& melder) {
  if (RotatieBibliotheek(os_naam) == ImageLibrary::kGdiPlus) {
    return GDIRoteerImg(foto_pad, richting, maak_backup, melder);
  }
  return IJLRoteerImg(foto_pad, richting, maak_backup, melder);
}

Status VerkleinFoto(const std::string& foto_pad, const VerkleinOpdracht& opdracht, bool maak_backup,
                    FoutMelder& melder) {
  return GDIVerkleinImg(foto_pad, opdracht.breedte, opdracht.hoogte, opdracht.kwaliteit_code, maak_backup,
                        melder);
}

ExternBewerken ExternBewerkenOpdracht(const std::string& programma, const std::string& foto_pad) {
  ExternBewerken e;
  e.programma = programma;
  e.argumenten = {foto_pad};
  e.opdrachtregel = "\"" + programma + "\" \"" + foto_pad + "\"";
  return e;
}

Melding ExternStartFoutMelding(const ExternBewerken& opdracht) {
  const Status fout = Status::Error(Fs().FileExists(opdracht.programma) ? fout::kPermissionDenied
                                                                        : fout::kFileNotFound);
  return {MeldingSoort::kFout,
          Vervang(FoutTekst(fout, " tijdens starten fotoprogramma " + opdracht.programma + ".", true), "\n", "\r\n")};
}

BewerkMenu BewerkMenuToestand(bool foto_gekozen, const ProgramSettings& settings, const UserPreferences& voorkeuren,
                              bool vernieuwen_aangezet) {
  BewerkMenu m;
  m.roteren = foto_gekozen;
  m.verkleinen = foto_gekozen && settings.verkleinen;
  m.extern_bewerken = foto_gekozen && settings.extern_bewerken && !voorkeuren.foto_programma.empty();
  m.vernieuwen = foto_gekozen && vernieuwen_aangezet;
  return m;
}

void FoutMeldingen::Meld(const std::string& tekst) {
  meldingen_.push_back({MeldingSoort::kWaarschuwing, Vervang(tekst, "\n", "\r\n")});
}

}  // namespace kiekbord
