// What the page writers share: reading a template with its log lines,
// filling the fields of a template line, the head block and credit line,
// writing the finished page with its log lines, and the error boundary of a
// writer's step.
//
// The title, overview and photo pages treat their template lines alike:
//   - a line beginning with "</HEAD>" (any case) gets the head block;
//   - a line holding "[" gets the common fields, in one fixed order, with the
//     page's own fields at their place (see PaginaVelden);
//   - on the title page only, the credit line goes in front of the first
//     line beginning with "<!--LINKICON-->", or else "</BODY>", once.
// A page writer fills a PaginaVelden (PaginaVeldenVan plus its own fields),
// hands each line to a PaginaRegels, and writes the result with
// SchrijfPaginaGelogd, all inside BinnenStapgrens. The style sheet writer
// uses the reading, the colour fields and the writing.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/line_table.h"
#include "base/status.h"
#include "generator/head_and_credit.h"
#include "generator/site_run.h"
#include "generator/template_engine.h"

namespace kiekbord {

// One field of a template line and the value it is filled with.
struct Veld {
  std::string naam;  // upper case, as in "[KIEKBORDVELD=LINKOVERZICHT]"
  std::string waarde;
};

// The four colours as six hex digits.
struct KleurVelden {
  std::string tekst_op_achtergrond;
  std::string achtergrond;
  std::string tekst_in_kader;
  std::string kader;
};

KleurVelden KleurVeldenVan(const SiteGegevens& gegevens);

// Fills "KLEURTEKSTOPACHTERGROND", "KLEURACHTERGROND", "KLEURTEKSTINKADER",
// "KLEURKADER" and "KLEURTEKST" (the text colour on the background again),
// in that order.
void VulKleurVelden(std::string& line, const KleurVelden& kleuren);

// The values of a page's fields, filled in the order of the members:
// "AANTALFOTOS", "TITEL", "SUBTITEL", "DATUM", "BESCHRIJVING", the colour
// fields, the page's own fields, "POSITIEFOTOS".
struct PaginaVelden {
  std::string aantal_fotos;
  std::string titel;
  std::string subtitel;
  // Title page: right after "SUBTITEL", every "<h2></h2>" (the heading of an
  // empty subtitle) becomes "<!-- Geen subtitel -->".
  bool lege_subtitel_als_commentaar = false;
  std::string datum;
  // Without a value the "BESCHRIJVING" field is left in the line.
  std::optional<std::string> beschrijving;
  KleurVelden kleuren;
  // Filled in this order after "KLEURTEKST" and before "POSITIEFOTOS".
  std::vector<Veld> eigen_velden;
  std::string positie_fotos;
};

// The run's values for the common fields: the photo count, title, subtitle
// (as it is), date, description, colours and PositieTekst; no own fields.
PaginaVelden PaginaVeldenVan(const SiteGegevens& gegevens);

// The subtitle, or the title when the subtitle is empty after trimming (the
// "SUBTITEL" of the overview and photo pages).
std::string SubtitelOfTitel(const SiteGegevens& gegevens);

// The 1-based piece number for an index kept as text (index + 1, rounded to
// a whole number; text that is no number counts as 0). Throws RunError(6)
// beyond the 16-bit range.
int StukNummer(std::string_view index);

// "left", "center" or "right" for photo position 0, 1, 2; ";" beyond, and
// "left" below. Throws RunError(6) as StukNummer does.
std::string PositieTekst(std::string_view positie_fotos);

// Fills the fields of `velden` in `line`, which begins inside a <script>
// block when `in_script` is set. Throws RunError(6) when the line grows
// beyond 32767 characters.
void VulPaginaVelden(std::string& line, const PaginaVelden& velden, bool in_script = false);

// The line treatment of one page, line by line in template order.
class PaginaRegels {
 public:
  // `kop_eerste` and `kop_tweede` are the texts of the head block: the
  // trimmed title and subtitle on the title page, empty on other pages.
  PaginaRegels(KopEnCredit kop, PaginaVelden velden, std::string kop_eerste = {},
               std::string kop_tweede = {});

  // The page gets the credit line (title page only), aligned by
  // `uitlijning`, its icon in `uitvoer_dir`.
  void MetCreditRegel(std::string uitvoer_dir, std::string uitlijning);

  // Treats one line: the head block on "</HEAD>", the fields when the line
  // holds "[", then the credit line while it is still to be placed. Throws
  // RunError on a text overflow or a failing icon copy.
  void VerwerkRegel(std::string& line);

  // VerwerkRegel on lines 1..Count() of `table`.
  void VerwerkAlle(LineTable& table);

 private:
  KopEnCredit kop_;
  PaginaVelden velden_;
  std::string kop_eerste_;
  std::string kop_tweede_;
  bool credit_te_plaatsen_ = false;
  bool in_script_ = false;  // a <script> block is open after the last line
  std::string uitvoer_dir_;
  std::string uitlijning_;
};

// Reads a template into a line table, its lines chosen by WebRegels;
// LeesSjabloon for pages, a LeesRegels reader for the style sheet.
using SjabloonLezer = Status (*)(const std::string& path, LineTable& table, bool webformaat);

// Logs "Inlezen sjabloon <path>...", reads the template with `lees` (for
// the run's "Webformaat") and logs
// "Sjabloon <path> ingelezen.": true. On failure logs "Fout bij inlezen
// sjabloon: " + the count slot, sets run.failed and returns false.
bool LeesSjabloonGelogd(const std::string& path, LineTable& table, SiteRun& run,
                        SjabloonLezer lees = LeesSjabloon);

// The log texts of writing one kind of page; each is followed by the page
// path or the error text as SchrijfPaginaGelogd says.
struct PaginaMeldingen {
  std::string_view aanmaken;    // "Aanmaken titelpagina "
  std::string_view fout;        // "Fout bij aanmaken titelpagina: "
  std::string_view aangemaakt;  // "Titelpagina "; empty: no line after success
};

// Logs meldingen.aanmaken + path + "..." and writes lines 1..Count() of
// `table` to `path` in one step. Then logs meldingen.aangemaakt + path +
// " aangemaakt." and returns true; or, when the page cannot be written,
// logs meldingen.fout + the "%Error" count slot, sets run.failed and
// returns false, leaving no page, or the earlier one, at `path`.
bool SchrijfPaginaGelogd(const std::string& path, LineTable& table,
                         const PaginaMeldingen& meldingen, SiteRun& run);

// Runs a writer's step. An unexpected failure inside it (a RunError, lack of
// memory, any other exception) ends the step: one log line "<number>
// <description>" and run.failed set. A failure to write that log line still
// reaches the run.
void BinnenStapgrens(SiteRun& run, const std::function<void()>& stap);

}  // namespace kiekbord
