#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "model/Guide.h"
#include "support/TempFolder.h"

namespace pescavo {
namespace {

namespace fs = std::filesystem;

class GuideTest : public ::testing::Test {
 protected:
  void write(const std::string& file, const std::string& text) { folder.write(file, text); }
  const TempFolder folder;
};

TEST_F(GuideTest, ContentsFollowTheIndexListsAndSearchFindsPagesHoldingEveryWord) {
  write("index.html",
        "<html><head><title>Guide</title><style>p { color: red }</style></head><body><ul>"
        "<li><a href=\"run.html\">One <b>run</b></a><ul>"
        "<li><a href=\"run.html#result\">The result</a></li></ul></li>"
        "<li><a href=\"files.html\">Files</a></li>"
        "<li><a href=\"https://example.org/\">Elsewhere</a></li></ul></body></html>");
  write("files.html",
        "<html><head><title>Files</title></head><body><p>Species.tab holds the lipid "
        "&amp; protein targets.</p></body></html>");
  write("run.html",
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
  write("index.html",
        "<title>Guide</title><a href=\"a.html#there\">A</a> <a href=\"gone.html\">Gone</a> "
        "<a href=\"#top\">Top</a> <a href=\"a.html#nowhere\">No anchor</a> "
        "<img src=\"missing.png\"> <a href=\"mailto:x@example.org\">Mail</a>");
  write("a.html", "<title>A</title><h2 id=\"there\">There</h2>");
  const Guide guide(folder.file());
  EXPECT_EQ(guide.brokenLinks(),
            (std::vector<std::string>{"index.html: gone.html", "index.html: #top",
                                      "index.html: a.html#nowhere", "index.html: missing.png"}));
}

TEST_F(GuideTest, LocateTakesTheFirstFolderWithAnIndex) {
  const fs::path empty = folder.path() / "empty";
  fs::create_directory(empty);
  write("index.html", "<title>Guide</title>");
  EXPECT_EQ(Guide::locate({folder.file("missing"), empty.string(), folder.file()}), folder.file());
  EXPECT_EQ(Guide::locate({empty.string()}), "");
  EXPECT_TRUE(Guide(empty.string()).empty());
}

// The guide the program ships: every link leads somewhere and every page is in the contents.
TEST(ShippedGuide, EveryLinkResolvesAndEveryPageIsReachable) {
  const Guide guide(PESCAVO_GUIDE);
  ASSERT_FALSE(guide.empty()) << PESCAVO_GUIDE;
  EXPECT_EQ(guide.brokenLinks(), std::vector<std::string>{});
  for (const fs::directory_entry& entry : fs::directory_iterator(PESCAVO_GUIDE)) {
    const std::string file = entry.path().filename().string();
    if (entry.path().extension() != ".html" || file == "index.html") continue;
    bool listed = false;
    for (const Guide::Entry& item : guide.contents())
      listed = listed || item.href.substr(0, item.href.find('#')) == file;
    EXPECT_TRUE(listed) << file << " is not in the contents";
  }
}

// The options page is where a user looks for what the all-options switch brings; each entry it
// reveals is named there, as written, and on the page that describes it.
TEST(ShippedGuide, TheOptionsPageNamesEveryEntryTheSwitchReveals) {
  const Guide guide(PESCAVO_GUIDE);
  const std::pair<const char*, const char*> entries[] = {
      {"Optimize all Scenarios", "sweep.html"},
      {"Feed components", "database.html"},
      {"Screen all substances", "screening.html"}};
  for (const auto& [entry, page] : entries) {
    // A page that holds the words apart marks only the first word.
    std::vector<std::string> files;
    for (const Guide::Hit& hit : guide.search(entry))
      if (hit.mark.size() == std::string(entry).size()) files.push_back(hit.file);
    EXPECT_NE(std::find(files.begin(), files.end(), "options.html"), files.end()) << entry;
    EXPECT_NE(std::find(files.begin(), files.end(), page), files.end()) << entry;
  }
}

}  // namespace
}  // namespace pescavo
