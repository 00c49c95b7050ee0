#include "ui/instance_lock.h"

#include <QDir>
#include <QLockFile>
#include <QStandardPaths>

namespace kiekbord {

InstanceLock::InstanceLock(const std::string& bestand)
    : lock_(std::make_unique<QLockFile>(QString::fromStdString(bestand))) {
  // The lock is held for the program's whole life, never stale while it runs.
  lock_->setStaleLockTime(0);
}

InstanceLock::~InstanceLock() = default;

bool InstanceLock::Verkrijg() {
  if (lock_->isLocked()) return true;
  return lock_->tryLock(0);
}

std::string InstanceLock::StandaardBestand() {
  QString map = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  if (map.isEmpty()) map = QDir::tempPath();
  return QDir(map).filePath(QStringLiteral("kiekbord.lock")).toStdString();
}

}  // namespace kiekbord
