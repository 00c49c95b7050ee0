// The header over the wizard's steps, in the style of a wizard page: the
// step as a title and under it what to do on that step.
#pragma once

#include <QFrame>

class QLabel;

namespace kiekbord {

class StapKop : public QFrame {
 public:
  explicit StapKop(QWidget* ouder = nullptr);

  // Shows the title and instruction of step `stap`.
  void ToonStap(int stap);

 private:
  QLabel* titel_;
  QLabel* uitleg_;
};

}  // namespace kiekbord
