// The script commands of the main window: open, save and save as, the
// change detection behind the question that offers to save, and the texts
// they show.
//
// `ScriptBestand` owns the script's line table and the copy taken right after
// each open and each successful save; the window keeps the gallery record in
// its controls and hands it in as a `GalleryScript` whenever a command needs
// it.
#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "gallery/gallery_script.h"
#include "base/line_table.h"
#include "base/melding.h"

namespace kiekbord {

// A path as captions show it: its first character upper-cased, the rest
// lower-cased ("/home/an/Reis.KBS" shows as "/home/an/reis.kbs").
std::string WeergaveVorm(const std::string& pad);

// The backup made when a script is opened: the path with its file name
// lower-cased and every ".kbs" in it replaced by ".bak"; the directory keeps
// its case ("/Foto's/Vakantie.KBS" gives "/Foto's/vakantie.bak").
std::string ScriptBackupPad(const std::string& pad);

// The window caption for a script: its display form, " - " and the program
// caption.
std::string VensterTitel(const std::string& pad, const std::string& programma_titel);

// The question that offers to save: "Wilt u de gewijzigde gegevens opslaan"
// (or "nieuw ingevoerde" without a script path), a line break, the ending and
// "?".
Melding OpslaanVraag(bool heeft_pad, const std::string& einde);

// The endings of that question.
inline constexpr const char* kVoordatAnderScript = "voordat u een ander script opent";
std::string VoordatAfsluiten();  // "voordat u Kiekbord afsluit"

class ScriptBestand {
 public:
  ScriptBestand();

  // The open routine's file work: reads the script at `pad`, copies the file
  // as it is on disk to ScriptBackupPad(pad) (a failed copy is not reported), and
  // keeps the table as the saved copy. On success the table is ready for
  // `ScriptLezen` and nothing is returned. On a failed read the warning
  // "Fout bij openen <pad>" + the error text is returned, and the table and
  // saved copy are left as they were.
  std::optional<Melding> Open(const std::string& pad);

  // Builds the script of `script` dated `datum` and writes it to `pad`. On
  // success the table becomes the saved copy and nothing is returned; on
  // failure the warning "Fout bij opslaan <pad>" (or "Fout bij opslaan als
  // <pad>" when `als`) + the error text comes back and the saved copy keeps
  // the last state that reached the disk, so the changes still count as
  // unsaved.
  std::optional<Melding> Opslaan(const GalleryScript& script, const std::chrono::year_month_day& datum,
                                 const std::string& pad, bool als);

  // True when the script of `script` differs from the saved copy in any line
  // other than one that begins with "aanmaakdatum" (in any case), so that the
  // date of writing alone is never a change. Rebuilds the table.
  bool Gewijzigd(const GalleryScript& script, const std::chrono::year_month_day& datum);

  const LineTable& tabel() const { return tabel_; }
  const LineTable& bewaard() const { return bewaard_; }

 private:
  LineTable tabel_;
  LineTable bewaard_;
};

}  // namespace kiekbord
