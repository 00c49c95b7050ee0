#include "ui/message_boxes.h"

#include <QMessageBox>
#include <QPushButton>
#include <QString>

#include "base/program_info.h"

namespace kiekbord {
namespace {

QMessageBox::Icon Icoon(MeldingSoort soort) {
  switch (soort) {
    case MeldingSoort::kInformatie: return QMessageBox::Information;
    case MeldingSoort::kVraag: return QMessageBox::Question;
    case MeldingSoort::kWaarschuwing: return QMessageBox::Warning;
    case MeldingSoort::kFout: return QMessageBox::Critical;
  }
  return QMessageBox::NoIcon;
}

// Message texts separate their lines with CR LF; a label wants LF only.
QString Tekst(const Melding& melding) {
  return QString::fromStdString(melding.tekst).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

}  // namespace

void QtMeldingen::Toon(QWidget* ouder, const Melding& melding) {
  QMessageBox box(Icoon(melding.soort), QString::fromUtf8(kProgramTitle), Tekst(melding), QMessageBox::NoButton,
                  ouder);
  box.setTextFormat(Qt::PlainText);
  QPushButton* ok = box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
  box.setDefaultButton(ok);
  box.setEscapeButton(ok);
  box.exec();
}

bool QtMeldingen::Vraag(QWidget* ouder, const Melding& melding) {
  QMessageBox box(Icoon(melding.soort), QString::fromUtf8(kProgramTitle), Tekst(melding), QMessageBox::NoButton,
                  ouder);
  box.setTextFormat(Qt::PlainText);
  QPushButton* ja = box.addButton(QStringLiteral("Ja"), QMessageBox::YesRole);
  QPushButton* nee = box.addButton(QStringLiteral("Nee"), QMessageBox::NoRole);
  box.setDefaultButton(melding.nee_voorop ? nee : ja);
  box.setEscapeButton(nee);
  box.exec();
  return box.clickedButton() == ja;
}

}  // namespace kiekbord
