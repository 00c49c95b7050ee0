// The program settings record, filled once at start-up from "KBord.ini" in
// the program's directory and read-only afterwards.
#pragma once

#include <string>

namespace kiekbord {

// Address of the program's information page, used by the credit line of the
// generated pages; "KBord.ini" may set another in [Sjabloon] CreditURL.
inline constexpr const char* kDefaultCreditUrl = "https://kiekbord.nl/";

struct ProgramSettings {
  // The program's data directory, ending in "/".
  std::string program_dir;

  int maximum_aantal = 100;
  bool verkleinen = true;
  bool extern_bewerken = true;
  bool meta_keywords = true;
  bool meta_description = true;

  std::string sjabloon_dir;           // template sets, ends in "/"
  std::string sjabloon_type = ".html";
  std::string sjabloon_host;
  std::string credit_url = kDefaultCreditUrl;

  std::string help_dir;               // ends in "/"
  std::string help_type = ".html";
  std::string help_host;

  // Default colours of a new gallery: empty without "KBord.ini", "x" when the
  // file lacks the key.
  std::string kleur_tekst_op_achtergrond;
  std::string kleur_achtergrond;
  std::string kleur_tekst_in_kader;
  std::string kleur_kader;

  std::string default_dir;            // the user's home directory, ends in "/"
  std::string caption;                // "Kiekbord 4.1 Pro"
  std::string quote = "\"";
};

// The settings for a program whose data directory is `program_dir`: the
// defaults, overridden by "KBord.ini" in that directory when it exists. A
// missing or unreadable file is not an error.
ProgramSettings LeesProgrammaInstellingen(const std::string& program_dir,
                                          const std::string& home_dir);

}  // namespace kiekbord
