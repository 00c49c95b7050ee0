#include "editor/script_commands.h"

#include "base/program_info.h"
#include "base/file_system.h"
#include "base/keyed_text_file.h"
#include "gallery/script_writer.h"
#include "base/text.h"
#include "base/text_helpers.h"

namespace kiekbord {
namespace {

// The error text of a failed read or write without its "%": "Error 53 File
// not found".
std::string FoutTekst(const LineTable& tabel) { return tabel.CountSlot().substr(1); }

// The first character of UTF-8 text: its lead byte and continuation bytes.
std::size_t EersteTekenLengte(const std::string& tekst) {
  std::size_t lengte = tekst.empty() ? 0 : 1;
  while (lengte < tekst.size() && (static_cast<unsigned char>(tekst[lengte]) & 0xC0) == 0x80) ++lengte;
  return lengte;
}

}  // namespace

std::string WeergaveVorm(const std::string& pad) {
  const std::size_t eerste = EersteTekenLengte(pad);
  return Upper(pad.substr(0, eerste)) + Lower(pad.substr(eerste));
}

std::string ScriptBackupPad(const std::string& pad) {
  return DirectoryOf(pad) + Vervang(Lower(FileNameOf(pad)), ".kbs", ".bak");
}

std::string VensterTitel(const std::string& pad, const std::string& programma_titel) {
  return WeergaveVorm(pad) + " - " + programma_titel;
}

Melding OpslaanVraag(bool heeft_pad, const std::string& einde) {
  const std::string soort = heeft_pad ? "gewijzigde" : "nieuw ingevoerde";
  return {MeldingSoort::kVraag, "Wilt u de " + soort + " gegevens opslaan\r\n" + einde + "?"};
}

std::string VoordatAfsluiten() { return "voordat u " + std::string(kProgramTitle) + " afsluit"; }

ScriptBestand::ScriptBestand() : tabel_(capaciteit::kScript), bewaard_(capaciteit::kScript) {}

std::optional<Melding> ScriptBestand::Open(const std::string& pad) {
  LineTable gelezen(capaciteit::kScript);
  const Status status = LeesRegels(pad, gelezen, false);
  // The backup is made before the read's result is looked at; a failure to
  // make it is not reported. A name without ".kbs" would back up onto itself.
  const std::string backup = ScriptBackupPad(pad);
  if (backup != pad) (void)CopyFileKeepingTime(pad, backup);
  if (!status.ok()) {
    return Melding{MeldingSoort::kWaarschuwing, "Fout bij openen " + pad + "\r\n" + FoutTekst(gelezen)};
  }
  tabel_ = gelezen;
  bewaard_ = gelezen;
  return std::nullopt;
}

std::optional<Melding> ScriptBestand::Opslaan(const GalleryScript& script, const std::chrono::year_month_day& datum,
                                              const std::string& pad, bool als) {
  const std::string kop = als ? "Fout bij opslaan als " : "Fout bij opslaan ";
  if (const Status opgebouwd = ScriptSchrijven(script, datum, tabel_); !opgebouwd.ok()) {
    return Melding{MeldingSoort::kWaarschuwing, kop + pad + "\r\n" + opgebouwd.CountSlotText().substr(1)};
  }
  if (!SchrijfRegels(pad, tabel_).ok()) {
    return Melding{MeldingSoort::kWaarschuwing, kop + pad + "\r\n" + FoutTekst(tabel_)};
  }
  bewaard_ = tabel_;
  return std::nullopt;
}

bool ScriptBestand::Gewijzigd(const GalleryScript& script, const std::chrono::year_month_day& datum) {
  // A script too big to build can't be saved either; it counts as changed so
  // the question still offers to try.
  if (!ScriptSchrijven(script, datum, tabel_).ok()) return true;
  for (int i = 1; i <= tabel_.Count(); ++i) {
    const std::string& regel = tabel_.Line(i);
    if (regel != bewaard_.Line(i) && !StartsWith(Lower(regel), "aanmaakdatum")) return true;
  }
  return false;
}

}  // namespace kiekbord
