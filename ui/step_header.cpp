#include "ui/step_header.h"

#include <QLabel>
#include <QVBoxLayout>

#include "editor/wizard_rules.h"
#include "ui/widget_helpers.h"

namespace kiekbord {

StapKop::StapKop(QWidget* ouder) : QFrame(ouder) {
  setObjectName(QStringLiteral("fraStapKop"));
  setFrameShape(QFrame::StyledPanel);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
  titel_ = Benoemd(new QLabel(this), "lblStapTitel");
  QFont vet = titel_->font();
  vet.setBold(true);
  vet.setPointSizeF(vet.pointSizeF() * 1.15);
  titel_->setFont(vet);
  uitleg_ = Benoemd(new QLabel(this), "lblStapUitleg");
  // One line: a wrapping label would make the window's smallest size too small for the steps.

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 8, 12, 8);
  layout->setSpacing(2);
  layout->addWidget(titel_);
  layout->addWidget(uitleg_);
}

void StapKop::ToonStap(int stap) {
  titel_->setText(Q(StapKopTitel(stap)));
  uitleg_->setText(Q(StapUitleg(stap)));
}

}  // namespace kiekbord
