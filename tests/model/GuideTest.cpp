#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "model/Guide.h"
#include "support/TempFolder.h"

namespace pescavo {
namespace {

namespace fs = std::filesystem;

// Contents from the index's lists, search over every page, the links that lead nowhere and the
// first folder holding an index.
TEST(GuideTest, ContentsSearchBrokenLinksAndLocate) {
  const TempFolder folder;
  folder.write("index.html",
               "<html><head><title>Guide</title><style>p { color: red }</style></head><body><ul>"
               "<li><a href=\"run.html\">One <b>run</b></a><ul>"
               "<li><a href=\"run.html#result\">The result</a></li></ul></li>"
               "<li><a href=\"files.html\">Files</a></li>"
               "<li><a href=\"https://example.org/\">Elsewhere</a></li></ul></body></html>");
  folder.write("files.html",
               "<html><head><title>Files</title></head><body><p>Species.tab holds the lipid "
               "&amp; protein targets.</p><a href=\"run.html#result\">Result</a> <a "
               "href=\"gone.html\">Gone</a> <a href=\"#top\">Top</a> <a href=\"run.html#nowhere\">"
               "No anchor</a> <img src=\"missing.png\"> <a href=\"mailto:x@example.org\">Mail</a>"
               "</body></html>");
  folder.write("run.html",
               "<html><head><title>A run</title></head><body><h2 id=\"result\">Result</h2>"
               "<p>The burden is red above 0.1 mg/kg; the LIPID target binds.</p></body></html>");
  const Guide guide(folder.file());
  std::string contents;
  for (const Guide::Entry& e : guide.contents())
    contents += std::to_string(e.level) + " " + e.title + " " + e.href + "; ";
  EXPECT_EQ(contents, "0 One run run.html; 1 The result run.html#result; 0 Files files.html; ");

  // In the contents' order (run before files), any case, every word; the whole query is marked
  // where the page holds it as written, else its first word.
  const std::vector<Guide::Hit> lipid = guide.search("Lipid");
  ASSERT_EQ(lipid.size(), 2u);
  EXPECT_EQ(lipid[0].file + " | " + lipid[1].title + " | " + lipid[1].snippet,
            "run.html | Files | Files Species.tab holds the lipid & protein targets. Result Gone "
            "Top No anchor Mail");
  EXPECT_EQ(guide.search("LIPID target")[0].mark, "LIPID target");
  EXPECT_EQ(guide.search("lipid protein")[0].mark, "lipid");
  EXPECT_TRUE(guide.search("color").empty() && guide.search("  ").empty());  // style is no text
  EXPECT_EQ(guide.brokenLinks(),
            (std::vector<std::string>{"files.html: gone.html", "files.html: #top",
                                      "files.html: run.html#nowhere", "files.html: missing.png"}));

  const fs::path empty = folder.path() / "empty";
  fs::create_directory(empty);
  EXPECT_EQ(Guide::locate({folder.file("missing"), empty.string(), folder.file()}), folder.file());
  EXPECT_EQ(Guide::locate({empty.string()}), "");
}

// The shipped guide: every link leads somewhere and every page is in the contents.
TEST(GuideTest, TheShippedGuideHasNoBrokenLinkAndNoPageOutsideTheContents) {
  const Guide guide(PESCAVO_GUIDE);
  EXPECT_EQ(guide.brokenLinks(), std::vector<std::string>{});
  std::set<std::string> listed;
  for (const Guide::Entry& item : guide.contents())
    listed.insert(item.href.substr(0, item.href.find('#')));
  int pages = 0;
  for (const fs::directory_entry& entry : fs::directory_iterator(PESCAVO_GUIDE)) {
    const std::string file = entry.path().filename().string();
    if (entry.path().extension() != ".html" || file == "index.html") continue;
    EXPECT_EQ(listed.count(file), 1u) << file << " is not in the contents";
    ++pages;
  }
  EXPECT_GT(pages, 5);
}

}  // namespace
}  // namespace pescavo
