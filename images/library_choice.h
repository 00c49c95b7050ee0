// Which image library does the work: the operating system's name, the
// "GDIplus.txt" marker beside the program, and the two places that turn them
// into a choice (the thumbnail run, and the main window for the edit
// commands).
#pragma once

#include <string>
#include <string_view>

#include "base/generation_log.h"

namespace kiekbord {

enum class ImageLibrary {
  kGdiPlus,  // the smooth library (libvips)
  kIjl11,    // the pixel-buffer library (TurboJPEG)
};

// The name of a version key ("2.6.1" gives "Windows7"); "Unknown (" + key +
// ")" for a key the table does not hold.
std::string OsNaamVoorSleutel(std::string_view sleutel);

// The operating system's name: here always "Unknown (3.<kernel major>.<kernel
// minor>)", e.g. "Unknown (3.6.1)". Never fails.
std::string BepaalOsNaam();

// True when "GDIplus.txt" exists in `program_dir`.
bool GdiplusMarkerAanwezig(const std::string& program_dir);

// The thumbnail run's choice for the system named `os_naam`, writing its
// detection and choice lines to the generation log (SchrijfLog).
ImageLibrary KiesThumbnailBibliotheek(const std::string& os_naam, const std::string& program_dir,
                                      GenerationLog& log);

// The same for the system the program runs on.
ImageLibrary KiesThumbnailBibliotheek(const std::string& program_dir, GenerationLog& log);

// The name the main window stores at start-up for the system named
// `os_naam` ("XP" with the marker, "Vista" for "Windows7"); logs nothing.
std::string HoofdvensterOsNaam(const std::string& os_naam, const std::string& program_dir);

// The library the rotate commands use for a stored main-window name.
// (Shrinking always uses the smooth library.)
ImageLibrary RotatieBibliotheek(std::string_view opgeslagen_naam);

}  // namespace kiekbord
