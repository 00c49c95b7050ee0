// Test doubles for the script reader: photo directories that exist only in
// memory, and the window's directory checks, recorded.
#pragma once

#include <algorithm>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/file_system.h"
#include "base/keyed_text_file.h"
#include "gallery/script_reader.h"

namespace kiekbord {

// Readable failure output for the record and the messages.
inline void PrintTo(const PhotoEntry& foto, std::ostream* out) {
  *out << "{\"" << foto.foto << "\", \"" << foto.bijschrift << "\"}";
}

inline void PrintTo(const GalleryScript& s, std::ostream* out) {
  *out << "\n  invoer_dir \"" << s.invoer_dir << "\"\n  uitvoer_dir \"" << s.uitvoer_dir << "\"\n  titel \""
       << s.titel << "\"\n  subtitel \"" << s.subtitel << "\"\n  datum \"" << s.datum << "\"\n  beschrijving \""
       << s.beschrijving << "\"\n  thumbnails " << s.thumbnails << "\n  sjabloon \"" << s.sjabloon
       << "\"\n  aantal_fotos_per_pagina \"" << s.aantal_fotos_per_pagina << "\"\n  lijsten";
  for (const KeuzeVeld& veld : kKeuzeVelden) *out << ' ' << s.*veld.index;
  *out << "\n  kleuren";
  for (const KleurVeld& veld : kKleurVelden) *out << ' ' << s.*veld.kleur;
  *out << "\n  " << s.fotos.size() << " foto's";
  for (const PhotoEntry& foto : s.fotos) {
    *out << "\n    ";
    PrintTo(foto, out);
  }
}

inline void PrintTo(const Melding& melding, std::ostream* out) {
  *out << "{soort " << static_cast<int>(melding.soort) << ", \"" << melding.tekst << "\"}";
}

}  // namespace kiekbord

namespace kiekbord::test {

// Directories and their files in memory; no other directory exists. Reading
// and writing whole files goes to the real disk (scripts in a scratch
// directory).
class FotoMappen : public ForwardingFileSystem {
 public:
  FotoMappen() : ForwardingFileSystem(LocalFileSystem()) {}

  // Makes `directory` exist, holding `namen` (and what it held already).
  void Map(const std::string& directory, const std::vector<std::string>& namen = {}) {
    std::set<std::string>& bestanden = mappen_[WithTrailingSlash(directory)];
    bestanden.insert(namen.begin(), namen.end());
  }

  bool FileExists(const std::string& path) override {
    const auto map = mappen_.find(DirectoryOf(path));
    return map != mappen_.end() && map->second.count(FileNameOf(path)) > 0;
  }

  bool DirectoryExists(const std::string& path) override {
    return mappen_.count(WithTrailingSlash(path)) > 0;
  }

  Status ListFiles(const std::string& directory, const std::string& pattern,
                   std::vector<std::string>& names) override {
    const auto map = mappen_.find(WithTrailingSlash(directory));
    names.clear();
    if (map == mappen_.end()) return Status::Error(fout::kPathNotFound);
    std::copy_if(map->second.begin(), map->second.end(), std::back_inserter(names),
                 [&](const std::string& naam) { return MatchesPattern(naam, pattern); });
    return Status::Ok();
  }

 private:
  std::map<std::string, std::set<std::string>> mappen_;
};

// The window's directory checks: every call is recorded, and the output
// directory is valid when the test says so.
class VensterMappen : public MapControle {
 public:
  explicit VensterMappen(bool uitvoer_geldig = true) : uitvoer_geldig_(uitvoer_geldig) {}

  void ControleerInvoerDir(const std::string& directory) override { oproepen.push_back("invoer " + directory); }
  bool ControleerUitvoerDir(const std::string& directory) override {
    oproepen.push_back("uitvoer " + directory);
    return uitvoer_geldig_;
  }
  void HercontroleerInvoerDir() override { oproepen.push_back("invoer opnieuw"); }

  std::vector<std::string> oproepen;

 private:
  bool uitvoer_geldig_;
};

// The template sets and home directory most tests read with.
inline LeesOmgeving StandaardOmgeving() {
  LeesOmgeving omgeving;
  omgeving.standaard_dir = "/home/els/";
  omgeving.sjablonen = {"Donker", "Klassiek", "Raster"};
  omgeving.sjablonen_dir = "/usr/share/kiekbord/Sjabloon/";
  omgeving.huidig_sjabloon = "Raster";
  return omgeving;
}

// Reads script text (as a file would hold it) with the reader.
inline ScriptGelezen LeesScriptTekst(std::string_view tekst, MapControle& mappen,
                                     const LeesOmgeving& omgeving = StandaardOmgeving()) {
  LineTable tabel(capaciteit::kScript);
  LeesRegelsUitTekst(tekst, tabel, false);
  return ScriptLezen(tabel, omgeving, mappen);
}

}  // namespace kiekbord::test
