#include "tests/ui/ui_fakes.h"

namespace kiekbord::test {
namespace {

template <typename T>
T Volgende(std::deque<T>& rij) {
  if (rij.empty()) return T{};
  T waarde = std::move(rij.front());
  rij.pop_front();
  return waarde;
}

}  // namespace

void TestMeldingen::Toon(QWidget*, const Melding& melding) { getoond.push_back({melding, false}); }

bool TestMeldingen::Vraag(QWidget*, const Melding& melding) {
  getoond.push_back({melding, true});
  if (antwoorden.empty()) {
    ++onbeantwoord;
    return false;
  }
  return Volgende(antwoorden);
}

std::vector<std::string> TestMeldingen::Teksten() const {
  std::vector<std::string> teksten;
  for (const Getoond& g : getoond) teksten.push_back(g.melding.tekst);
  return teksten;
}

std::string TestDialogen::ScriptOpenen(QWidget*, const std::string& map) {
  ++aantal;
  geopend_in.push_back(map);
  return Volgende(te_openen);
}

std::string TestDialogen::ScriptOpslaanAls(QWidget*, const std::string& map, const std::string& naam) {
  ++aantal;
  geopend_in.push_back(map);
  voorgestelde_namen.push_back(naam);
  return Volgende(op_te_slaan);
}

std::string TestDialogen::MapKiezen(QWidget*, const std::string&, const std::string& map) {
  ++aantal;
  geopend_in.push_back(map);
  return Volgende(mappen);
}

std::vector<std::string> TestDialogen::FotosKiezen(QWidget*, const std::string& map) {
  ++aantal;
  geopend_in.push_back(map);
  return Volgende(fotos);
}

std::optional<QColor> TestDialogen::KleurKiezen(QWidget*, const std::string&, const QColor& huidig) {
  ++aantal;
  kleur_start.push_back(huidig);
  return Volgende(kleuren);
}

std::string TestDialogen::FotoprogrammaKiezen(QWidget*, const std::string& huidig) {
  ++aantal;
  geopend_in.push_back(huidig);
  return Volgende(fotoprogrammas);
}

void TestBureaublad::OpenAddress(QWidget*, const std::string& adres, bool) { adressen.push_back(adres); }
void TestBureaublad::OpenLog(QWidget*, const std::string& pad) { logs.push_back(pad); }

std::string TestBureaublad::FindBrowser(const std::string&) {
  ++browser_gezocht;
  return browser;
}

bool TestBureaublad::StartProgramma(const std::string& programma, const std::vector<std::string>& argumenten) {
  std::vector<std::string> opdracht = {programma};
  opdracht.insert(opdracht.end(), argumenten.begin(), argumenten.end());
  gestart.push_back(opdracht);
  return start_lukt;
}

std::optional<std::string> TestOpslag::Lees(std::string_view sectie, std::string_view sleutel) const {
  const auto it = waarden.find(std::string(sectie) + "/" + std::string(sleutel));
  if (it == waarden.end()) return std::nullopt;
  return it->second;
}

void TestOpslag::Schrijf(std::string_view sectie, std::string_view sleutel, std::string_view waarde) {
  waarden[std::string(sectie) + "/" + std::string(sleutel)] = std::string(waarde);
}

}  // namespace kiekbord::test
