#pragma once

#include <span>
#include <string_view>

namespace velmo::demo {

inline constexpr std::size_t sizesOfFamily = 5;

// A product in five sizes, each an item of its own.
struct ProductFamily {
  std::string_view name;
  std::string_view unit;
  double cost;  // of the first size
  int packPieces;
  std::string_view sizes[sizesOfFamily];
};

struct ProductGroup {
  std::string_view name;
  ProductFamily families[2];
};

struct ProductCategory {
  std::string_view id;
  std::string_view name;
  ProductGroup groups[5];
};

// What a hardware wholesaler carries: 8 categories of 50 items.
std::span<const ProductCategory> productCategories();

struct ServiceOffer {
  std::string_view code;
  std::string_view name;
  std::string_view unit;
  double price;
};

std::span<const ServiceOffer> serviceOffers();

}  // namespace velmo::demo
