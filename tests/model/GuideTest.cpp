#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "model/Guide.h"
#include "support/TempFolder.h"

namespace pescavo {
namespace {

namespace fs = std::filesystem;

class GuideTest : public ::testing::Test {
 protected:
  const TempFolder folder;
};

TEST_F(GuideTest, ContentsFollowTheIndexListsAndSearchFindsPagesHoldingEveryWord) {
  folder.write("index.html",
               "<html><head><title>Guide</title><style>p { color: red }</style></head><body><ul>"
               "<li><a href=\"run.html\">One <b>run</b></a><ul>"
               "<li><a href=\"run.html#result\">The result</a></li></ul></li>"
               "<li><a href=\"files.html\">Files</a></li>"
               "<li><a href=\"https://example.org/\">Elsewhere</a></li></ul></body></html>");
  folder.write("files.html",
               "<html><head><title>Files</title></head><body><p>Species.tab holds the lipid "
               "&amp; protein targets.</p></body></html>");
  folder.write("run.html",
               "<html><head><title>A run</title></head><body><h2 id=\"result\">Result</h2>"
               "<p>The burden is red above 0.1 mg/kg; the LIPID target binds.</p></body></html>");
  const Guide guide(folder.file());
  std::string contents;
  for (const Guide::Entry& e : guide.contents())
    contents += std::to_string(e.level) + " " + e.title + " " + e.href + "; ";
  EXPECT_EQ(contents, "0 One run run.html; 1 The result run.html#result; 0 Files files.html; ");

  // In the contents' order (run before files), any case, every word, entities resolved.
  const std::vector<Guide::Hit> lipid = guide.search("Lipid");
  ASSERT_EQ(lipid.size(), 2u);
  EXPECT_EQ(lipid[0].file, "run.html");
  EXPECT_EQ(lipid[1].title, "Files");
  EXPECT_NE(lipid[1].snippet.find("lipid & protein"), std::string::npos);
  ASSERT_EQ(guide.search("lipid burden").size(), 1u);
  // The whole query is marked where the page holds it as written, else its first word.
  EXPECT_EQ(guide.search("LIPID target")[0].mark, "LIPID target");
  EXPECT_EQ(guide.search("lipid protein")[0].mark, "lipid");
  EXPECT_TRUE(guide.search("color").empty());  // style blocks are not text
  EXPECT_TRUE(guide.search("  ").empty());
  EXPECT_TRUE(guide.brokenLinks().empty());
}

TEST_F(GuideTest, BrokenLinksNameTheMissingPageOrAnchor) {
  folder.write("index.html",
               "<title>Guide</title><a href=\"a.html#there\">A</a> <a href=\"gone.html\">Gone</a> "
               "<a href=\"#top\">Top</a> <a href=\"a.html#nowhere\">No anchor</a> "
               "<img src=\"missing.png\"> <a href=\"mailto:x@example.org\">Mail</a>");
  folder.write("a.html", "<title>A</title><h2 id=\"there\">There</h2>");
  const Guide guide(folder.file());
  EXPECT_EQ(guide.brokenLinks(),
            (std::vector<std::string>{"index.html: gone.html", "index.html: #top",
                                      "index.html: a.html#nowhere", "index.html: missing.png"}));
}

TEST_F(GuideTest, LocateTakesTheFirstFolderWithAnIndex) {
  const fs::path empty = folder.path() / "empty";
  fs::create_directory(empty);
  folder.write("index.html", "<title>Guide</title>");
  EXPECT_EQ(Guide::locate({folder.file("missing"), empty.string(), folder.file()}), folder.file());
  EXPECT_EQ(Guide::locate({empty.string()}), "");
  EXPECT_TRUE(Guide(empty.string()).empty());
}

// The shipped guide: every link leads somewhere, every page is in the contents, and the options
// page names each entry the all-options switch reveals as written, as does its own page.
TEST(ShippedGuide, EveryLinkResolvesEveryPageIsReachableAndTheOptionsPageNamesTheEntries) {
  const Guide guide(PESCAVO_GUIDE);
  ASSERT_FALSE(guide.empty()) << PESCAVO_GUIDE;
  EXPECT_EQ(guide.brokenLinks(), std::vector<std::string>{});
  std::set<std::string> listed;
  for (const Guide::Entry& item : guide.contents())
    listed.insert(item.href.substr(0, item.href.find('#')));
  for (const fs::directory_entry& entry : fs::directory_iterator(PESCAVO_GUIDE)) {
    const std::string file = entry.path().filename().string();
    if (entry.path().extension() == ".html" && file != "index.html") {
      EXPECT_EQ(listed.count(file), 1u) << file << " is not in the contents";
    }
  }
  for (const auto& [entry, page] : {std::pair("Optimize all Scenarios", "sweep.html"),
                                    std::pair("Feed components", "database.html"),
                                    std::pair("Screen all substances", "screening.html")}) {
    std::set<std::string> files;
    for (const Guide::Hit& hit : guide.search(entry))  // the whole entry marked, not a word
      if (hit.mark.size() == std::string(entry).size()) files.insert(hit.file);
    EXPECT_EQ(files.count("options.html") + files.count(page), 2u) << entry;
  }
}

}  // namespace
}  // namespace pescavo
