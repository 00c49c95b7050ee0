// The link checker that the site tests rely on: it must find what is broken
// and leave alone what is not a link.
#include "tests/support/site_links.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using Lines = std::vector<std::string>;

class SiteLinksTest : public ::testing::Test {
 protected:
  void Pagina(const std::string& naam, const std::string& tekst) {
    test::WriteBytes(dir_ / naam, tekst);
  }
  test::TempDir dir_;
};

TEST_F(SiteLinksTest, MissingFilesAndAnchorsAreReported) {
  Pagina("index.html",
         "<html><body><a href=\"kb001.html\">ok</a> <a href='kb002.html'>weg</a>\r\n"
         "<a href=kb001.html#foto001>anker</a> <a href=\"kb001.html#foto009\">geen anker</a>\r\n"
         "<img src=\"foto01.jpg\"><IMG SRC=\"foto02.jpg\"></body></html>");
  Pagina("kb001.html",
         "<a name=\"foto001\"></a><img id=\"img001\" src=\"foto01.jpg\">"
         "<a href=\"#img001\">zelfde pagina</a><a href=\"#foto002\">fout</a>");
  Pagina("foto01.jpg", "jpeg");
  EXPECT_EQ(test::OnvindbareLinks(dir_.path()),
            (Lines{"index.html: kb002.html", "index.html: kb001.html#foto009",
                   "index.html: foto02.jpg", "kb001.html: #foto002"}));
  EXPECT_EQ(test::AantalLinks(dir_.path()), 9);
}

TEST_F(SiteLinksTest, SelectsAndButtonsAreLinksToo) {
  Pagina("kb001.html",
         "<select onChange=\"self.location.href=this[this.selectedIndex].value;\">"
         " <option value=\"kb001.html\" selected>1</option>\r\n <option "
         "value=\"kb002.html\">2</option>"
         "</select><select id=\"nav01\"><option value=\"2\">Foto 2</option></select>"
         "<input type=\"button\" onClick=\"self.location.href='kbovz.html';\">");
  EXPECT_EQ(test::OnvindbareLinks(dir_.path()),
            (Lines{"kb001.html: kb002.html", "kb001.html: kbovz.html"}));
}

TEST_F(SiteLinksTest, ExternalLinksCommentsAndScriptsAreNotChecked) {
  Pagina("index.html",
         "<!-- <a href=\"weg.html\"> -->\r\n<a href=\"https://kiekbord.example/info\">info</a>"
         "<a href=\"mailto:a@b.nl\">post</a>\r\n<script>if (a<b) { x = '<a href=\"weg.html\">'; "
         "}</script>"
         "<p>3 < 4</p>");
  EXPECT_EQ(test::OnvindbareLinks(dir_.path()), Lines{});
  EXPECT_EQ(test::AantalLinks(dir_.path()), 2);
}

TEST_F(SiteLinksTest, StyleSheetUrlsMustExist) {
  Pagina("kb.css", "body { background: url(\"kbrand.gif\"); }\r\n.a { background: url(weg.gif) }");
  Pagina("kbrand.gif", "GIF89a");
  EXPECT_EQ(test::OnvindbareLinks(dir_.path()), Lines{"kb.css: weg.gif"});
}

}  // namespace
}  // namespace kiekbord
