#pragma once

#include <cstdint>
#include <string>

// The hierarchies behind the print-outs of the catalogue. Codes are as they were typed; % and _ in them are wildcards.
namespace velmo::masters {

// Categories of goods, their sub categories in the chapter `level2`, the items of these in `level3`.
std::string wholeInventory();
std::string inventoryOfCategory(const std::string& catId);
std::string inventoryOfSubCategory(const std::string& catId, const std::string& subCatId);

// Sub categories of services with the services that are not blocked in the chapter `level3`.
std::string allServices();
std::string servicesOfSubCategory(const std::string& subCatId);

// A brand with its items that are not blocked in the chapter `level3`.
std::string itemsOfBrand(std::int64_t brandId);

}  // namespace velmo::masters
