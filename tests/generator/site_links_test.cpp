// The link checker that the site tests rely on: it must find what is broken
// and leave alone what is not a link.
#include "tests/support/site_links.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/test_support.h"

namespace kiekbord::test {
namespace {

using Lines = std::vector<std::string>;

TEST(SiteLinksTest, MissingFilesAndAnchorsAreReportedInSelectsButtonsAndStyleSheetsToo) {
  TempDir dir;
  WriteBytes(dir / "index.html",
             "<html><body><a href=\"kb001.html\">ok</a> <a href='kb002.html'>weg</a>\r\n"
             "<a href=kb001.html#foto001>anker</a> <a href=\"kb001.html#foto009\">geen anker</a>\r\n"
             "<img src=\"foto01.jpg\"><IMG SRC=\"foto02.jpg\"></body></html>");
  WriteBytes(dir / "kb001.html",
             "<a name=\"foto001\"></a><img id=\"img001\" src=\"foto01.jpg\">"
             "<a href=\"#img001\">zelfde pagina</a><a href=\"#foto002\">fout</a>"
             "<select onChange=\"self.location.href=this[this.selectedIndex].value;\">"
             " <option value=\"kb001.html\" selected>1</option>\r\n <option value=\"kb003.html\">3</option>"
             "</select><select id=\"nav01\"><option value=\"2\">Foto 2</option></select>"
             "<input type=\"button\" onClick=\"self.location.href='kbovz.html';\">");
  WriteBytes(dir / "kb.css", "body { background: url(\"foto01.jpg\"); }\r\n.a { background: url(weg.gif) }");
  WriteBytes(dir / "foto01.jpg", "jpeg");
  EXPECT_EQ(OnvindbareLinks(dir.path()),
            (Lines{"index.html: kb002.html", "index.html: kb001.html#foto009", "index.html: foto02.jpg",
                   "kb.css: weg.gif", "kb001.html: #foto002", "kb001.html: kb003.html", "kb001.html: kbovz.html"}));
  EXPECT_EQ(AantalLinks(dir.path()), 14);
}

TEST(SiteLinksTest, ExternalLinksCommentsAndScriptsAreNotChecked) {
  TempDir dir;
  WriteBytes(dir / "index.html",
             "<!-- <a href=\"weg.html\"> -->\r\n<a href=\"https://kiekbord.example/info\">info</a>"
             "<a href=\"mailto:a@b.nl\">post</a>\r\n<script>if (a<b) { x = '<a href=\"weg.html\">'; }</script>"
             "<p>3 < 4</p>");
  EXPECT_EQ(OnvindbareLinks(dir.path()), Lines{});
  EXPECT_EQ(AantalLinks(dir.path()), 2);
}

}  // namespace
}  // namespace kiekbord::test
