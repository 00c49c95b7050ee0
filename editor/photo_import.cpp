#include "editor/photo_import.h"

#include <algorithm>

#include "base/file_system.h"
#include "base/text.h"
#include "base/text_helpers.h"
#include "editor/photo_upright.h"

namespace kiekbord {
namespace {

constexpr const char* kRegeleinde = "\r\n";

std::string Laatste4(const std::string& naam) { return naam.size() >= 4 ? naam.substr(naam.size() - 4) : naam; }

std::string FoutZin(const Status& status) {
  return "Fout " + std::to_string(status.number()) + " (" + status.description() + ")";
}

Melding HernoemFoutMelding(const std::string& van, const std::string& naar, const Status& status) {
  return {MeldingSoort::kFout,
          FoutZin(status) + " bij het hernoemen van" + kRegeleinde + van + kRegeleinde + "naar " + naar + "."};
}

// The lower-case form of a path in the output directory: only the file name
// is lower-cased, the directory keeps its case.
std::string KleinPad(const std::string& directory, const std::string& naam) {
  return WithTrailingSlash(directory) + Lower(naam);
}

}  // namespace

Melding KopieerVraag() {
  return {MeldingSoort::kVraag, std::string("Om een kiekbord aan te maken dienen alle") + kRegeleinde +
                                    "foto's in de uitvoerdirectory te staan." + kRegeleinde + kRegeleinde +
                                    "Wilt u alle foto's in de invoerdirectory nu" + kRegeleinde +
                                    "naar de uitvoerdirectory kopieren?"};
}

std::optional<Melding> HernoemMelding(int aantal) {
  if (aantal < 1) return std::nullopt;
  return Melding{MeldingSoort::kInformatie,
                 "Van " + std::to_string(aantal) + " fotobestand(en) is de naam omgezet naar kleine letters." +
                     kRegeleinde + "Dit is nodig omdat in de HTML-pagina's bestandsnamen ook" + kRegeleinde +
                     "in kleine letters worden vermeld."};
}

bool ZelfdeMap(const std::string& a, const std::string& b) {
  return Lower(WithTrailingSlash(a)) == Lower(WithTrailingSlash(b));
}

bool BevatJpgBestanden(const std::string& directory) {
  std::vector<std::string> namen;
  return Fs().ListFiles(directory, "*.jpg", namen).ok() && !namen.empty();
}

bool IsFotoBestand(const std::string& naam) {
  return Lower(Laatste4(naam)) == ".jpg" && Lower(naam).find("_tn.") == std::string::npos;
}

ImportResultaat FotosKopieren(const std::string& invoer_dir, const std::string& uitvoer_dir, int maximum,
                              const OpschoonOpdracht& opschoning) {
  ImportResultaat resultaat;
  std::vector<std::string> namen;
  if (const Status lijst = Fs().ListFiles(invoer_dir, "*.jpg", namen); !lijst.ok()) {
    resultaat.fout = Melding{MeldingSoort::kFout, FoutZin(lijst) + " bij het lezen van de invoerdirectory" +
                                                      kRegeleinde + invoer_dir + "."};
    return resultaat;
  }
  for (const std::string& naam : namen) {
    if (resultaat.aantal >= maximum) break;
    if (!IsFotoBestand(naam)) continue;
    const std::string bron = WithTrailingSlash(invoer_dir) + naam;
    const std::string doel = KleinPad(uitvoer_dir, naam);
    KopieUitkomst kopie;
    if (const Status status = KopieerOpgeschoond(bron, doel, opschoning, kopie); !status.ok()) {
      resultaat.fout = KopieerFoutMelding(bron, doel, status);
      break;
    }
    if (kopie.fout) resultaat.opschoon_fouten.push_back(*kopie.fout);
    ++resultaat.aantal;
  }
  return resultaat;
}

ImportResultaat FotosHernoemen(const std::string& uitvoer_dir, const std::string& os_naam) {
  ImportResultaat resultaat;
  std::vector<std::string> namen;
  if (!Fs().ListFiles(uitvoer_dir, "*.jpg", namen).ok()) return resultaat;
  for (const std::string& naam : namen) {
    if (Lower(Laatste4(naam)) != ".jpg" || naam == Lower(naam)) continue;
    const std::string oud = WithTrailingSlash(uitvoer_dir) + naam;
    const std::string nieuw = KleinPad(uitvoer_dir, naam);
    // On a case-sensitive disk the lower-case name can belong to another
    // photo; renaming over it would lose that photo.
    if (Fs().FileExists(nieuw)) {
      resultaat.fout = HernoemFoutMelding(oud, nieuw, Status::Error(fout::kFileExists));
      break;
    }
    Status status;
    if (os_naam == "Vista") {
      const std::string tijdelijk = KleinPad(uitvoer_dir, "temp_" + naam);
      status = Fs().RenameFile(oud, tijdelijk);
      if (status.ok()) status = Fs().RenameFile(tijdelijk, nieuw);
    } else {
      status = Fs().RenameFile(oud, nieuw);
    }
    if (!status.ok()) {
      resultaat.fout = HernoemFoutMelding(oud, nieuw, status);
      break;
    }
    ++resultaat.aantal;
  }
  return resultaat;
}

Melding LijstVolMelding(int maximum) {
  return {MeldingSoort::kWaarschuwing, "Een kiekbord kan niet meer dan " + std::to_string(maximum) +
                                           " foto's bevatten." + kRegeleinde +
                                           "Verwijder eerst een foto voordat u er een toevoegt."};
}

Melding KopieerFoutMelding(const std::string& bron, const std::string& doel, const Status& status) {
  return {MeldingSoort::kFout,
          FoutZin(status) + " bij het kopiëren van" + kRegeleinde + bron + kRegeleinde + "naar " + doel + "."};
}

ToevoegPlan PlanToevoegen(const std::string& bron, const std::string& uitvoer_dir,
                          const std::vector<PhotoEntry>& fotos, int maximum) {
  ToevoegPlan plan;
  const std::string bestand = FileNameOf(bron);
  plan.naam = KopieNaam(bestand);
  plan.doel = WithTrailingSlash(uitvoer_dir) + plan.naam;
  if (!IsFotoBestand(bestand) && !IsHeifBestand(bestand)) {
    plan.melding = {MeldingSoort::kWaarschuwing,
                    "Het bestand " + bestand + " kan niet worden toegevoegd." + kRegeleinde +
                        "Alleen foto's van het type '.jpg' horen in een kiekbord; thumbnails (_tn.jpg) niet."};
    return plan;
  }
  const bool in_lijst = std::any_of(fotos.begin(), fotos.end(),
                                    [&](const PhotoEntry& foto) { return foto.foto == plan.naam; });
  if (in_lijst) {
    plan.soort = ToevoegPlan::Soort::kAlInLijst;
    plan.melding = {MeldingSoort::kInformatie,
                    "De foto " + plan.naam + " staat al in de kiekbord."};
    return plan;
  }
  if (static_cast<int>(fotos.size()) >= maximum) {
    plan.melding = LijstVolMelding(maximum);
    return plan;
  }
  if (bron == plan.doel) {
    plan.soort = ToevoegPlan::Soort::kAlleenLijst;
  } else if (Fs().FileExists(plan.doel)) {
    plan.soort = ToevoegPlan::Soort::kVervangen;
    plan.melding = {MeldingSoort::kVraag, "De uitvoerdirectory bevat al een bestand " + plan.naam + "." +
                                              kRegeleinde + kRegeleinde + "Wilt u het vervangen door" +
                                              kRegeleinde + bron + "?"};
  } else {
    plan.soort = ToevoegPlan::Soort::kKopieren;
  }
  return plan;
}

Melding VerwijderVraag(const std::string& naam) {
  return {MeldingSoort::kWaarschuwing,
          "Wilt u de foto " + naam + " uit de kiekbord verwijderen" + kRegeleinde + "en het bestand van schijf wissen?",
          true};
}

Melding VerwijderFoutMelding(const std::string& pad, const Status& status) {
  return {MeldingSoort::kFout, FoutZin(status) + " bij het wissen van" + kRegeleinde + pad + "."};
}

Status FotoWissen(const std::string& uitvoer_dir, const std::string& naam) {
  const std::string pad = WithTrailingSlash(uitvoer_dir) + naam;
  if (const Status status = Fs().DeleteFile(pad); !status.ok()) return status;
  const std::string thumbnail = WithTrailingSlash(uitvoer_dir) + Vervang(naam, ".jpg", "_tn.jpg");
  if (thumbnail != pad && Fs().FileExists(thumbnail)) (void)Fs().DeleteFile(thumbnail);
  return Status::Ok();
}

}  // namespace kiekbord
