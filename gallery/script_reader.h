// Reading a script into the gallery record: the core of `ScriptLezen`.
//
// The reader never rejects a script: a missing key takes its default, a
// malformed photo entry is skipped and a missing photo file is dropped. It
// reads both forms of the script: the current one (with "Versie" in
// "[Kiekbord]" and one "[FotoNNN]" section per photo) and the older one (all
// photos in "[Fotobijschriften]" as "Foto:<name>=<caption>"). What the window
// must tell the user comes back as data, in the order it arises.
//
// The window's directory checks stay in the window: the reader calls them
// through `MapControle` at the moments the window's own code did, when it
// filled the directory fields.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "gallery/gallery_script.h"
#include "base/line_table.h"
#include "base/melding.h"

namespace kiekbord {

// The directory checks of the window.
class MapControle {
 public:
  virtual ~MapControle() = default;
  // The input directory field now holds `directory`: remember it as the
  // current input directory and check it as if the user had left the field.
  virtual void ControleerInvoerDir(const std::string& directory) = 0;
  // The output directory field now holds `directory`: forget the remembered
  // output directory and check it. True when the directory is valid.
  virtual bool ControleerUitvoerDir(const std::string& directory) = 0;
  // The output directory holds no photos: forget the remembered input
  // directory and check the input field again.
  virtual void HercontroleerInvoerDir() = 0;
};

// The checks without a window: the input directory is not checked, and an
// output directory is valid when it exists.
class MappenZonderVenster : public MapControle {
 public:
  void ControleerInvoerDir(const std::string&) override {}
  bool ControleerUitvoerDir(const std::string& directory) override;
  void HercontroleerInvoerDir() override {}
};

// What the reader needs to know of the window.
struct LeesOmgeving {
  // Default of both directories: the user's home directory, ending in "/".
  std::string standaard_dir;
  // The template sets of the template list, in list order.
  std::vector<std::string> sjablonen;
  // The template sets directory, as the missing-set message names it.
  std::string sjablonen_dir;
  // The template set selected now; kept when the script names none.
  std::string huidig_sjabloon;
};

struct ScriptGelezen {
  GalleryScript script;
  // The script has no "Versie": the older form.
  bool ouder_formaat = false;
  // The output directory is valid and holds photo files ("*.jpg", any case):
  // the window points its file list of the output directory there. Without
  // it no photo is loaded, whatever the script holds.
  bool fotos_laden = false;
  // Photo entries of the script whose name passes the form's name rule
  // (counted only when photos are loaded). The photos found are
  // script.fotos: those entries whose file exists in the output directory.
  std::size_t vermeldingen = 0;
  // The messages to show, in order.
  std::vector<Melding> meldingen;
};

// Reads the script in `tabel` (read by `LeesRegels` just before; a failed
// read counts as an empty script). Never fails.
ScriptGelezen ScriptLezen(const LineTable& tabel, const LeesOmgeving& omgeving, MapControle& mappen);

// The photo count as the window shows it: "12 foto('s)".
std::string AantalFotosTekst(std::size_t aantal);

}  // namespace kiekbord
