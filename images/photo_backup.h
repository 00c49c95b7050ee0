// The backup a photo gets before its first edit: a copy in the "Backup"
// folder beside it, made once and never replaced, so it keeps the photo as it
// was before any rotation or shrinking.
#pragma once

#include <string>

namespace kiekbord {

// The backup path of `photo`: its folder + "Backup/" + its base name (up to
// the first ".") + its extension (from the last "."), case kept:
// "Zee.Strand.JPG" gives "Backup/Zee.JPG". Empty when `photo` has no folder.
std::string BackupPad(const std::string& photo);

// Makes the backup of `photo` (the "Backup" folder is created when missing)
// unless the backup file exists already. Returns the backup path, or an
// empty text when the backup could not be made.
std::string MaakBackup(const std::string& photo);

}  // namespace kiekbord
