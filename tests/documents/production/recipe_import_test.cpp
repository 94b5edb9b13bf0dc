#include "documents/production/recipe_import.h"

#include <gtest/gtest.h>

#include "documents/production/workshop_desk.h"
#include "text/number.h"

namespace velmo::documents {
namespace {

class RecipeImport : public testing::Test {
 protected:
  std::string lines(const tl::expected<Recipe, std::string>& recipe) {
    if (!recipe) return recipe.error();
    std::string all;
    for (const RecipeLine& line : recipe->lines)
      all += line.itemCode + " " + text::numberText(line.quantity) + " @" + store::textOf(line.rate) + " = " +
             text::numberText(line.amount) + "; ";
    return all + text::numberText(recipe->labour) + " + " + text::numberText(recipe->overhead);
  }
  std::string needed(const std::string& product, double pieces, std::int64_t room = 500) {
    return lines(recipeFor(pieces, recipeOf(shop.context.KORDconn, product), room));
  }
  test::WorkshopCompany shop;
};

TEST_F(RecipeImport, TakesEveryRecipeOfTheProductForOnePieceEach) {
  EXPECT_TRUE(recipeOf(shop.context.KORDconn, "P1").lines.empty());
  shop.addRecipe("P1", {{"H1", 2, 10}}, 5, 3, 10, 7);
  EXPECT_EQ(needed("p1", 4), "H1 8 @10 = 80; 20 + 12");
  shop.run("UPDATE StockLevel3 SET ValuationCost2 = 99, Status = Yes WHERE ItemCode = 'H1'");
  shop.addRecipe("P1", {{"N1", 3, 0.1}, {"H1", 0, 1}}, 100, 200);
  shop.addRecipe("P", {{"N1", 1, 1}}, 100, 200);
  shop.addRecipe("P_", {{"N1", 1, 1}}, 100, 200);
  EXPECT_EQ(needed("P1", 4), "H1 8 @10 = 80; N1 12 @0.1 = 1.2; H1 0 @1 = 0; 20 + 12");
  EXPECT_EQ(needed("P_", 1), "N1 1 @1 = 1; 100 + 200");
  EXPECT_EQ(needed("P1", 0.333), "H1 0.666 @10 = 6.66; N1 0.999 @0.1 = 0.1; H1 0 @1 = 0; 1.665 + 0.999");
}

TEST_F(RecipeImport, OfAProductMadeOfItselfEnds) {
  shop.addRecipe("P1", {{"P1", 2, 10}, {"H1", 1, 10}});
  shop.addRecipe("H1", {{"P1", 1, 10}});
  EXPECT_EQ(needed("P1", 1), "P1 2 @10 = 20; H1 1 @10 = 10; 0 + 0");
}

TEST_F(RecipeImport, IsRefusedWhole) {
  std::vector<test::WorkshopCompany::Component> many(100, {"H1", 1, 1});
  shop.addRecipe("P1", many);
  EXPECT_EQ(recipeFor(1, recipeOf(shop.context.KORDconn, "P1"), 100)->lines.size(), 100U);
  EXPECT_EQ(needed("P1", 1, 99),
            "The recipe has 100 components, and there is room for 99 from this line on. Nothing was imported.");
  for (const double pieces : {1e8, 1e308})
    EXPECT_EQ(needed("P1", pieces), "So many pieces need more of item H1 than a line can hold. Nothing was imported.");
  shop.run("DELETE FROM StockLevel3 WHERE ItemCode = 'H1'");
  EXPECT_EQ(needed("P1", 1),
            "Item H1 of the recipe is not among the items any more. Nothing was imported; change the recipe first.");
}

}  // namespace
}  // namespace velmo::documents
