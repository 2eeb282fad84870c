#include "model/InformationTexts.h"

#include "tables/NumericText.h"

namespace pescavo {

namespace {

constexpr const char* kCR = "\r";
constexpr const char* kClassification =
    "A classification of feed components is represented by CC (carbohydrate concentrate),"
    " PC (protein concentrate) and F (fat).";

std::string speciesText(const std::vector<FishSpecies>& species, char separator) {
  std::string text = "Targent content:";
  for (std::size_t i = 0; i < species.size(); ++i) {
    const FishSpecies& fish = species[i];
    if (i > 0) text += kCR;
    text += kCR + fish.name + ":" + kCR + generalForm(fish.lipid, separator) + " % lipid and " +
            generalForm(fish.protein, separator) + "% protein.";
  }
  return text;
}

std::string fishmealText(const std::vector<FishMealGrade>& fishmeal, char separator) {
  constexpr std::size_t kDefaultGrade = 2;
  const std::string grade =
      fishmeal.size() > kDefaultGrade ? fishmealItemText(fishmeal[kDefaultGrade], separator) : "";
  return std::string(kClassification) + kCR +
         "The Pescavo offers the possibility to take fish meal into consideration." + kCR +
         " Fish meal is treated as uncontaminated feed component and theoretically 100% of fish "
         "meal can be used for diet." +
         kCR + grade + kCR;
}

}  // namespace

InformationText informationText(InformationImage image, const std::vector<FishSpecies>& species,
                                const std::vector<FishMealGrade>& fishmeal, char decimalSeparator) {
  switch (image) {
    case InformationImage::Image2:
      return {"Fish species", speciesText(species, decimalSeparator)};
    case InformationImage::Image3:
      return {"Criteria",
              "The Pescavo offers in this version of the program only the possibility to "
              "calculate the maximum burden and the respective feed composition."};
    case InformationImage::Image4:
      return {"Restriction of feed components",
              std::string(kCR) + kCR +
                  "The Pescavo offers the possibility to calculate a feed considering the MRBD or "
                  "a feed ignoring fish specific preferences."};
    case InformationImage::Image5:
      return {"Fish meal", fishmealText(fishmeal, decimalSeparator)};
    case InformationImage::Image6:
      return {"Residue Value",
              std::string("The program converts automatically the residue value into residue "
                          "value concerning dry matter.") +
                  kCR};
    case InformationImage::Image7:
      return {"Classification of feed components",
              std::string(kClassification) + " " + kCR +
                  "The Pescavo offers the possibility to take an uncontaminated CC component "
                  "(carbohydrate concentrate) into consideration, for example starch with" +
                  kCR + " 0.1 % protein and 0.1 % lipid content."};
    case InformationImage::Image8:
      return {"Classification of feed components",
              std::string(kClassification) + kCR +
                  "The Pescavo offers the possibility to take a component (fat) into "
                  "consideration, for example a fish oil with" +
                  kCR + " 100 % lipid content."};
  }
  return {};
}

}  // namespace pescavo
