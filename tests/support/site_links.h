// A mechanical check of a generated site's internal links.
//
// Every page ("*.html", "*.htm") in a folder is read as HTML. Its links are
// the "href" and "src" attributes, the values of "<option>"s that name a
// page (a page select), and "location.href='...'" inside attribute values
// (a button); style sheets ("*.css") add their "url(...)". A link with a
// scheme ("https:", "javascript:") is external and not checked. A link
// resolves when its file exists and, with a "#fragment", when the target
// page has an element with that "name" or "id".
#pragma once

#include <string>
#include <vector>

namespace kiekbord::test {

// The links that do not resolve, each as "<page>: <link>", in page order.
std::vector<std::string> OnvindbareLinks(const std::string& map);

// The number of links checked in the folder (to show a check is not empty).
int AantalLinks(const std::string& map);

}  // namespace kiekbord::test
