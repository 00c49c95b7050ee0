// Copying a template set's images, scripts and extra style sheets into the
// output directory, skipping copies that are already up to date.
//
// Each copier logs how many files it found in the template directory and how
// many it copied. A file is copied when the output directory lacks it or
// when the modification times differ (older or newer alike); the copy gets a
// lower-case file name and the source's modification time, so an unchanged
// template file is skipped on the next run. With `webformaat` the set's
// subfolder "web/" adds its files of the kind, after the set's own, and a
// file there replaces the set's file of the same name; without it the
// subfolder is never looked at.
#pragma once

#include <string>

#include "base/generation_log.h"

namespace kiekbord {

// "*.gif", then "*.jpg": at most 512 images together, the ".gif" files
// first. Throws RunError when a copy fails; a missing template directory
// finds nothing.
void KopieerAfbeeldingen(const std::string& sjabloon_dir, const std::string& uitvoer_dir, GenerationLog& log,
                         bool webformaat = false);

// "*.js": at most 512 scripts. Throws RunError when a copy fails.
void KopieerScripts(const std::string& sjabloon_dir, const std::string& uitvoer_dir, GenerationLog& log,
                    bool webformaat = false);

// "*.css" except "kb.css", which the style sheet writer makes: at most 512.
// Throws RunError when a copy fails.
void KopieerStijlbladen(const std::string& sjabloon_dir, const std::string& uitvoer_dir, GenerationLog& log,
                        bool webformaat = false);

}  // namespace kiekbord
