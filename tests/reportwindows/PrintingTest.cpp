// PrintGrid and PrintPictureToFitPage printing into PDF files, read back with poppler-utils;
// the grid's clipboard text; the hand pointer file.

#include <QDate>
#include <QHeaderView>
#include <QPrinter>
#include <map>
#include <regex>
#include <sstream>

#include "ReportTestSupport.h"
#include "desktop/HandPointer.h"
#include "desktop/PrintGrid.h"
#include "desktop/PrintPicture.h"

namespace pescavo::test {
namespace {

constexpr double kPointsPerMillimetre = 72 / 25.4;

class PrintingTest : public ReportWindowTest {
 protected:
  // An A4 PDF printer, whatever the locale's paper.
  std::unique_ptr<QPrinter> printer(const std::string& name) {
    auto result = std::make_unique<QPrinter>(QPrinter::HighResolution);
    result->setOutputFormat(QPrinter::PdfFormat);
    result->setPageSize(QPageSize(QPageSize::A4));
    result->setOutputFileName(QString::fromStdString(file(name)));
    return result;
  }

  // A grid with header "H<c>" and cells "R<r>C<c>", columns of the given pixels.
  void fill(int rows, int columns, int width) {
    grid.setRowCount(rows);
    grid.setColumnCount(columns);
    grid.verticalHeader()->hide();
    for (int c = 0; c < columns; ++c) {
      grid.setHorizontalHeaderItem(c, new QTableWidgetItem(QStringLiteral("H%1").arg(c)));
      grid.setColumnWidth(c, width);
      for (int r = 0; r < rows; ++r)
        grid.setItem(r, c, new QTableWidgetItem(QStringLiteral("R%1C%2").arg(r).arg(c)));
    }
    for (int r = 0; r < rows; ++r) grid.setRowHeight(r, 30);
    grid.resize(800, 600);
    grid.show();
  }
  // Prints the grid with margins of 10 mm, 15 mm at the top; the number of pages.
  int print(const std::string& name, const char* title, const char* second = "", int hide = 0) {
    return PrintGrid(*printer(name), grid, 10, 15, 10, 10, title, second, hide);
  }
  static std::map<std::string, int> words(const std::string& text) {
    std::map<std::string, int> counts;
    std::istringstream in(text);
    for (std::string word; in >> word;) ++counts[word];
    return counts;
  }

  QTableWidget grid;
};

TEST_F(PrintingTest, ATableWiderAndLongerThanAPageGoesOnOverPagesEachWithTitleAndDate) {
  fill(60, 12, 150);
  const int pages = print("wide.pdf", "Title\tof the grid");
  ASSERT_GT(pages, 3);
  EXPECT_EQ(pdfPages(file("wide.pdf")), pages);
  EXPECT_TRUE(pdfLandscape(file("wide.pdf")));
  const std::string today = QDate::currentDate().toString("dd.MM.yyyy").toStdString();
  std::map<std::string, int> cells;
  std::vector<std::map<std::string, int>> perPage;
  for (int page = 1; page <= pages; ++page) {
    const std::string text = pdfPageText(file("wide.pdf"), page);
    EXPECT_NE(text.find("Title"), std::string::npos) << page;
    EXPECT_NE(text.find(today), std::string::npos) << page;
    perPage.push_back(words(text));
    for (const auto& [word, count] : perPage.back())
      if (word[0] == 'R') cells[word] += count;
  }
  // Every cell exactly once, down the rows first; every page heads its columns.
  EXPECT_EQ(cells.size(), 720u);
  for (const auto& [cell, count] : cells) EXPECT_EQ(count, 1) << cell;
  for (const auto& page : perPage)
    for (int c = 0; c < 12; ++c)
      if (page.count(QString("R0C%1").arg(c).toStdString()) ||
          page.count(QString("R59C%1").arg(c).toStdString())) {
        EXPECT_EQ(page.count(QString("H%1").arg(c).toStdString()), 1u) << c;
      }
  EXPECT_TRUE(perPage[0].count("R0C0") && !perPage[0].count("R59C0") && !perPage[0].count("R0C11"));
  EXPECT_TRUE(perPage[1].count("H0") && !perPage[1].count("R0C0"));
}

TEST_F(PrintingTest, TitleDateAndGridKeepTheirPlaces) {
  fill(3, 3, 120);
  ASSERT_EQ(print("places.pdf", "Heading\tTabbed", "Second line"), 1);
  const std::string boxes = commandOutput("pdftotext -bbox '" + file("places.pdf") + "' -");
  const auto top = [&](const std::string& word, double* left = nullptr, double* right = nullptr) {
    const std::regex pattern("xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\" xMax=\"([0-9.]+)\"[^>]*>" +
                             word + "<");
    std::smatch match;
    EXPECT_TRUE(std::regex_search(boxes, match, pattern)) << word << boxes;
    if (match.empty()) return 0.0;
    if (left) *left = std::stod(match[1]);
    if (right) *right = std::stod(match[3]);
    return std::stod(match[2]);
  };
  double left = 0, right = 0, tabbed = 0;
  EXPECT_NEAR(top("Heading", &left, &right), 10 * kPointsPerMillimetre, 1.5);
  EXPECT_NEAR(left, 10 * kPointsPerMillimetre, 1.5);
  // The TAB moves on to the next stop, a few characters on.
  EXPECT_NEAR(top("Tabbed", &tabbed), 10 * kPointsPerMillimetre, 1.5);
  EXPECT_GT(tabbed, right + 1);
  EXPECT_LT(tabbed, right + 60);
  EXPECT_NEAR(top("Second"), 16 * kPointsPerMillimetre, 1.5);
  EXPECT_GT(top("H0"), 20 * kPointsPerMillimetre);
  EXPECT_GT(top("R0C0"), top("H0"));
}

TEST_F(PrintingTest, AFirstHiddenColumnPrintsTheColumnsBeforeItAndLeavesTheGridAsItWas) {
  fill(2, 9, 80);
  grid.setColumnHidden(1, true);  // hidden on screen: not printed either
  ASSERT_EQ(print("hidden.pdf", "Hidden", "", 3), 1);
  const auto printed = words(pdfPageText(file("hidden.pdf"), 1));
  for (int c = 0; c < 9; ++c) {
    const bool expected = c == 0 || c == 2;
    EXPECT_EQ(printed.count(QStringLiteral("H%1").arg(c).toStdString()) > 0, expected) << c;
    EXPECT_EQ(printed.count(QStringLiteral("R1C%1").arg(c).toStdString()) > 0, expected) << c;
    EXPECT_EQ(grid.columnWidth(c), c == 1 ? 0 : 80) << c;
    EXPECT_EQ(grid.isColumnHidden(c), c == 1);
  }
}

TEST_F(PrintingTest, ClipboardTextOfAGridHasTheHeaderFirstAndEndsEveryRowWithCrLf) {
  fill(2, 3, 80);
  grid.item(1, 2)->setText("");
  EXPECT_EQ(gridClipboardText(grid), "H0\tH1\tH2\r\nR0C0\tR0C1\tR0C2\r\nR1C0\tR1C1\t\r\n");
  grid.horizontalHeader()->hide();
  grid.verticalHeader()->show();
  grid.setVerticalHeaderLabels({"a", "b"});
  EXPECT_EQ(gridClipboardText(grid), "a\tR0C0\tR0C1\tR0C2\r\nb\tR1C0\tR1C1\t\r\n");
}

TEST_F(PrintingTest, APictureFillsThePageInItsOwnOrientation) {
  EXPECT_EQ(fitToPage({400, 200}, {300, 100}), QSizeF(200, 100));  // narrower than the page
  EXPECT_EQ(fitToPage({400, 100}, {300, 100}), QSizeF(300, 75));   // wider
  EXPECT_TRUE(fitToPage({0, 100}, {300, 100}).isEmpty());

  for (const QSize size : {QSize(1000, 500), QSize(500, 1000), QSize(600, 600)}) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::red);
    const std::string name = std::to_string(size.width()) + ".pdf";
    auto out = printer(name);
    ASSERT_TRUE(PrintPictureToFitPage(*out, picture));
    EXPECT_EQ(pdfLandscape(file(name)), size.width() >= size.height()) << name;
    // pdfimages gives the resolution the picture was placed at: its printed size.
    const std::string list = commandOutput("pdfimages -list '" + file(name) + "'");
    std::istringstream fields(list.substr(list.rfind('\n', list.size() - 2) + 1));
    std::vector<std::string> cells{std::istream_iterator<std::string>(fields), {}};
    ASSERT_GE(cells.size(), 14u) << list;
    const QRectF printable = out->pageLayout().paintRect(QPageLayout::Inch);
    const QSizeF expected = fitToPage(size, printable.size());
    EXPECT_NEAR(std::stod(cells[12]), size.width() / expected.width(), 1) << name;
    EXPECT_NEAR(std::stod(cells[13]), size.height() / expected.height(), 1) << name;
  }
  auto out = printer("none.pdf");
  EXPECT_FALSE(PrintPictureToFitPage(*out, QImage()));
}

TEST(HandPointerTest, ReadsTheCursorFileWithItsHotSpotAndNothingElse) {
  const std::optional<QCursor> hand =
      loadCursorFile(QStringLiteral(PESCAVO_SAMPLE_INPUT "/harrow.cur"));
  ASSERT_TRUE(hand.has_value());
  EXPECT_EQ(hand->shape(), Qt::BitmapCursor);
  EXPECT_EQ(hand->hotSpot(), QPoint(5, 0));
  EXPECT_EQ(hand->pixmap().size(), QSize(32, 32));
  EXPECT_FALSE(loadCursorFile(QStringLiteral(PESCAVO_SAMPLE_INPUT "/Species.tab")));
  EXPECT_FALSE(loadCursorFile(QStringLiteral(PESCAVO_SAMPLE_INPUT "/missing.cur")));
}

}  // namespace
}  // namespace pescavo::test
