#include "app/startup_checks.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using test::TempDir;
using test::WriteBytes;
using Soort = OpdrachtregelScript::Soort;

TEST(StartupChecks, Messages) {
  EXPECT_EQ(AlGestartMelding(), (Melding{MeldingSoort::kFout, "Kiekbord is al gestart."}));
  EXPECT_EQ(GeenSjablonenMelding("/prog/Sjabloon/"),
            (Melding{MeldingSoort::kWaarschuwing, "Geen sjablonen-directory in /prog/Sjabloon/ gevonden.\r\n"
                                                  "Het is daarom niet mogelijk om een kiekbord aan te maken."}));
}

TEST(StartupChecks, TemplateSetsAreTheSubdirectoriesByName) {
  TempDir dir;
  for (const char* naam : {"Raster", "Donker", ".verborgen", "Klassiek"}) std::filesystem::create_directory(dir / naam);
  WriteBytes(dir / "los.txt", "x");
  EXPECT_EQ(SjabloonSets(dir.path()), (std::vector<std::string>{"Donker", "Klassiek", "Raster"}));
  EXPECT_TRUE(SjabloonSets(dir / "weg").empty());
}

TEST(StartupChecks, CommandLine) {
  TempDir dir;
  const std::string script = dir / "Reis.KBS";
  WriteBytes(script, "[Kiekbord]\r\n");

  OpdrachtregelScript r = BekijkOpdrachtregel("\"" + script + "\"  ");
  EXPECT_EQ(r.soort, Soort::kOpenen);
  EXPECT_EQ(r.pad, script);

  r = BekijkOpdrachtregel("\"/a b/reis.txt\"");
  EXPECT_EQ(r.soort, Soort::kOnjuist);
  EXPECT_EQ(r.melding, (Melding{MeldingSoort::kWaarschuwing,
                                "Bestand '/a b/reis.txt' heeft onjuist type.\r\nHet bestandstype moet '.kbs' zijn."}));

  EXPECT_EQ(BekijkOpdrachtregel(dir / "weg.kbs").soort, Soort::kNiets);
  EXPECT_EQ(BekijkOpdrachtregel("a.kbs").soort, Soort::kNiets);     // 5 characters
  EXPECT_EQ(BekijkOpdrachtregel("abc.txt").soort, Soort::kNiets);   // 7 characters
  EXPECT_EQ(BekijkOpdrachtregel("abcd.txt").soort, Soort::kOnjuist);
  EXPECT_EQ(BekijkOpdrachtregel("").soort, Soort::kNiets);
}

}  // namespace
}  // namespace kiekbord
