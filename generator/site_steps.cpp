#include "generator/site_run.h"

namespace kiekbord {

SiteSteps StandaardStappen() {
  SiteSteps steps;
  return steps;
}

}  // namespace kiekbord
