// The single-instance test: a lock file in the user's runtime directory
// ($XDG_RUNTIME_DIR, else the temporary directory). The lock is held while
// the object lives; a lock left by a copy that crashed is taken over.
#pragma once

#include <memory>
#include <string>

class QLockFile;

namespace kiekbord {

class InstanceLock {
 public:
  explicit InstanceLock(const std::string& bestand = StandaardBestand());
  ~InstanceLock();
  // True when this copy holds the lock (now or from an earlier call); false
  // when another running copy does.
  bool Verkrijg();

  static std::string StandaardBestand();

 private:
  std::unique_ptr<QLockFile> lock_;
};

}  // namespace kiekbord
