#include <gtest/gtest.h>

#include "model/InformationTexts.h"

namespace pescavo {
namespace {

const std::vector<FishSpecies> kSpecies = {{"Common carp", 8, 35}, {"Rainbow trout", 15, 42}};
const std::vector<FishMealGrade> kGrades = {{60, 8}, {62, 9}, {65, 10}, {70, 12}};

TEST(InformationTexts, FishSpeciesListsEachTargetOnLinesSeparatedByCarriageReturns) {
  const InformationText info = informationText(InformationImage::Image2, kSpecies, kGrades, '.');
  EXPECT_EQ(info.caption, "Fish species");
  EXPECT_EQ(info.text,
            "Targent content:\rCommon carp:\r8 % lipid and 35% protein.\r\r"
            "Rainbow trout:\r15 % lipid and 42% protein.");
  // The targets are written in the general form, with the user's separator.
  const InformationText comma =
      informationText(InformationImage::Image2, {{"Carp", 7.5, 35}}, kGrades, ',');
  EXPECT_EQ(comma.text, "Targent content:\rCarp:\r7,5 % lipid and 35% protein.");
}

TEST(InformationTexts, FishMealEndsWithTheThirdGradeAsTheChooserShowsIt) {
  const InformationText info = informationText(InformationImage::Image5, kSpecies, kGrades, '.');
  EXPECT_EQ(info.caption, "Fish meal");
  EXPECT_EQ(info.text,
            "A classification of feed components is represented by CC (carbohydrate "
            "concentrate), PC (protein concentrate) and F (fat).\r"
            "The Pescavo offers the possibility to take fish meal into consideration.\r"
            " Fish meal is treated as uncontaminated feed component and theoretically 100% of "
            "fish meal can be used for diet.\r"
            "65 % protein, 10% lipid\r");
  const InformationText twoGrades =
      informationText(InformationImage::Image5, kSpecies, {{60, 8}, {62, 9}}, '.');
  EXPECT_EQ(twoGrades.text.substr(twoGrades.text.size() - 7), "diet.\r\r");
}

TEST(InformationTexts, FixedTextsKeepTheirBlanksAndLineBreaks) {
  struct Case {
    InformationImage image;
    const char* caption;
    const char* text;
  };
  const Case cases[] = {
      {InformationImage::Image3, "Criteria",
       "The Pescavo offers in this version of the program only the possibility to calculate "
       "the maximum burden and the respective feed composition."},
      {InformationImage::Image4, "Restriction of feed components",
       "\r\rThe Pescavo offers the possibility to calculate a feed considering the MRBD or a "
       "feed ignoring fish specific preferences."},
      {InformationImage::Image6, "Residue Value",
       "The program converts automatically the residue value into residue value concerning dry "
       "matter.\r"},
      // The starch text's first line ends in a blank, the oil text's does not.
      {InformationImage::Image7, "Classification of feed components",
       "A classification of feed components is represented by CC (carbohydrate concentrate), PC "
       "(protein concentrate) and F (fat). \rThe Pescavo offers the possibility to take an "
       "uncontaminated CC component (carbohydrate concentrate) into consideration, for example "
       "starch with\r 0.1 % protein and 0.1 % lipid content."},
      {InformationImage::Image8, "Classification of feed components",
       "A classification of feed components is represented by CC (carbohydrate concentrate), PC "
       "(protein concentrate) and F (fat).\rThe Pescavo offers the possibility to take a "
       "component (fat) into consideration, for example a fish oil with\r 100 % lipid content."},
  };
  for (const Case& c : cases) {
    const InformationText info = informationText(c.image, kSpecies, kGrades, '.');
    EXPECT_EQ(info.caption, c.caption);
    EXPECT_EQ(info.text, c.text) << c.caption;
  }
}

}  // namespace
}  // namespace pescavo
