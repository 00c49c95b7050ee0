// User text in the places where HTML escaping is not enough: the caption
// list of the slide show (a script string) and the meta tags (attributes).
#include "base/text_helpers.h"
#include "generator/template_engine.h"
#include "tests/robustness/gallery_fixture.h"

namespace kiekbord::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

TEST(TekstPerPlaats, EachPlaceHasItsOwnEscaping) {
  const struct {
    std::string_view tekst, attribuut, script;
  } gevallen[] = {
      {"Jan's \"fiets\" & <b>", "Jan's &quot;fiets&quot; & &lt;b&gt;", "Jan\\'s \\\"fiets\\\" & \\x3Cb>"},
      {"C:\\nieuw\r\n\t", "C:\\nieuw\r\n\t", "C:\\\\nieuw\\r\\n\\x09"},
      {"</script><!--\xE2\x80\xA8\xE2\x80\xA9", "&lt;/script&gt;&lt;!--\xE2\x80\xA8\xE2\x80\xA9",
       "\\x3C/script>\\x3C!--\\u2028\\u2029"},
  };
  for (const auto& g : gevallen) {
    EXPECT_EQ(AttribuutTekst(g.tekst), g.attribuut);
    EXPECT_EQ(ScriptTekst(g.tekst), g.script);
  }
  // A field is escaped for where it stands.
  std::string regel = "<p title='[KIEKBORDVELD=TITEL]'>[KIEKBORDVELD=TITEL]</p><script>t='[KIEKBORDVELD=TITEL]';";
  VervangVeld(regel, "TITEL", "\"Jan's\" <x>");
  EXPECT_EQ(regel, "<p title='&quot;Jan&#39;s&quot; &lt;x&gt;'>&quot;Jan's&quot; &lt;x&gt;</p>"
                   "<script>t='\\\"Jan\\'s\\\" \\x3Cx>';");
  regel = "var s = \"[KIEKBORDVELD=BIJSCHRIFT]\"; // </script> <b>[KIEKBORDVELD=BIJSCHRIFT]</b>";
  VervangVeld(regel, "BIJSCHRIFT", "a\\b", true);
  EXPECT_EQ(regel, "var s = \"a\\\\b\"; // </script> <b>a\\b</b>");
}

TEST_F(Robuustheid, HostileCaptionsAndTitleStayText) {
  WriteBytes(Programma() + "KBord.ini", "[Sjabloon]\r\nMetaKeywords=1\r\nMetaDescription=1\r\n");
  const std::string titel = "\"><script>alert(1)</script>";
  SchrijfScript({.namen = {"strand.jpg", "duin.jpg", "zee.jpg", "strand.jpg"},
                 .bijschriften = {"\\';alert(2);//", "</script><script>alert(3)</script>", "C:\\nieuw\\tabel",
                                  "Strand bij Wijk aan Zee"},
                 .algemeen = "Titel=" + titel + "\r\nThumbnails=0\r\n",
                 .instellingen = "Presentatie=1\r\n"});
  Genereer();
  ASSERT_EQ(log_.back(), "Normaal einde.");

  const std::string pagina = ReadBytes(Uit() + "kb001.html");
  EXPECT_THAT(pagina, HasSubstr("var sBijschriftenLijst = '\\\\\\';alert(2);// $$"
                                "\\x3C/script>\\x3Cscript>alert(3)\\x3C/script> $$"
                                "C:\\\\nieuw\\\\tabel $$Strand bij Wijk aan Zee ';"));
  EXPECT_THAT(pagina, Not(HasSubstr("<script>alert")));
  const std::string titelpagina = ReadBytes(Uit() + "index.html");
  EXPECT_THAT(titelpagina, HasSubstr("<meta name=\"description\" content=\"&quot;&gt;&lt;script&gt;alert(1)&lt;/"
                                     "script&gt;. Aangemaakt met Kiekbord.\">"));
  EXPECT_THAT(titelpagina, Not(HasSubstr("<script>alert")));
}

}  // namespace
}  // namespace kiekbord::test
