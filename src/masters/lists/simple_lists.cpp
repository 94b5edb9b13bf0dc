#include "masters/lists/simple_lists.h"

#include "frame/master/master_dialog.h"
#include "masters/catalogue/catalogue_prints.h"
#include "text/number.h"

namespace velmo::masters {
namespace {

using frame::BoxUse;
using frame::MasterEntry;
using frame::MasterPanel;

// One more than the largest number of a table, rows that no dialog lists included.
frame::GivenCode numberedBy(const std::string& column, const std::string& table) {
  auto next = [=](const MasterEntry& entry) {
    const store::Recordset last(entry.connection(), "select max(" + column + ") as LastID from " + table,
                                store::LockType::ReadOnly);
    return text::numberText(last.number("LastID") + 1);
  };
  return {.column = column, .table = table, .next = std::move(next)};
}

std::function<std::string(const MasterEntry&)> always(const char* words) {
  return [words](const MasterEntry&) { return std::string(words); };
}

frame::MasterLevel regionLevel() {
  return {.frame = "L1Frame",
          .list = "L1List",
          .suffix = "",
          .heading = "Regions",
          .key = "Region1ID",
          .statement =
              [](const std::string&) {
                return std::string("SELECT * from Regions1 where Region1ID>1 order by Region1name");
              },
          .columns = {{.caption = "Region", .field = "Region1Name", .width = 30}},
          .fields = {{.name = "CatCode", .caption = "No.", .column = "Region1ID", .use = BoxUse::ShownOnly},
                     {.name = "CatCodeTxt", .caption = "Region", .column = "Region1Name"}},
          .written = {{"Region1ID"}, {"Region1Name"}},
          .tests = {{frame::emptyText("Region1Name", "Enter region name to save."), "Region1Name"}},
          .deletion =
              frame::MasterDeletion{
                  .none = {"No Region", "There is no region to be deleted."},
                  .refusals = {frame::hasRows(
                      "select * from regions2 where region1id = ",
                      [](const MasterEntry& entry) { return entry.stored("Region1ID"); },
                      always("There have been sub regions present in this region. Delete them before deleting it."))},
                  .question = always("Are you sure, you want to delete this selected region?")},
          .firstColumn = "Region1Name",
          .givenCode = numberedBy("Region1ID", "Regions1")};
}

frame::MasterLevel subRegionLevel() {
  return {.frame = "L2Frame",
          .list = "L2List",
          .suffix = "2",
          .heading = "Sub regions",
          .key = "Region2ID",
          .statement =
              [](const std::string& region) {
                return "SELECT * from regions2 where region1id = " + (region.empty() ? "0" : region) +
                       " order by region2name";
              },
          .columns = {{.caption = "Sub region", .field = "Region2Name", .width = 30}},
          .fields = {{.name = "SubCatCode", .caption = "No.", .column = "Region2ID", .use = BoxUse::ShownOnly},
                     {.name = "SubCatCodeTxt", .caption = "Sub region", .column = "Region2Name"}},
          .written = {{"Region2ID"},
                      {"Region2Name"},
                      {"Region1ID", [](const MasterEntry& entry) -> store::Value { return entry.parent(); }}},
          .tests = {{frame::emptyText("Region2Name", "Enter sub region name to save."), "Region2Name"}},
          .deletion = frame::MasterDeletion{.none = {"No Sub Region Found", "There is no sub region to be deleted."},
                                            .refusals = {frame::hasRows(
                                                "select * from acclevel3 where region2id = ",
                                                [](const MasterEntry& entry) { return entry.stored("Region2ID"); },
                                                [](const MasterEntry& entry) {
                                                  return "There have been customers recorded in this sub region, " +
                                                         entry.stored("Region2Name") + ".";
                                                })},
                                            .question =
                                                [](const MasterEntry& entry) {
                                                  return "Are you sure, you want to delete this selected sub region, " +
                                                         entry.stored("Region2Name") + "?";
                                                }},
          .firstColumn = "Region2Name",
          .givenCode = numberedBy("Region2ID", "Regions2")};
}

// A list of numbered names: LocList, LID, LocName.
frame::MasterLevel namesLevel(const std::string& heading, const std::string& key, const std::string& name,
                              const std::string& statement, const std::string& nameMissing) {
  return {.frame = "ListFrame",
          .list = "LocList",
          .suffix = "",
          .heading = heading,
          .key = key,
          .statement = [statement](const std::string&) { return statement; },
          .columns = {{.caption = "Name", .field = name, .width = 36},
                      {.caption = "No.", .field = key, .alignment = forms::ColumnAlignment::Right, .width = 8}},
          .fields = {{.name = "LID", .caption = "No.", .column = key, .use = BoxUse::ShownOnly},
                     {.name = "LocName", .caption = "Name", .column = name}},
          .written = {{name}},
          .tests = {{frame::emptyText(name, nameMissing), name}},
          .firstColumn = name};
}

std::function<std::optional<std::string>(const MasterEntry&)> isTheFirst(const std::string& column, const char* words) {
  return [=](const MasterEntry& entry) {
    return entry.stored(column) == "1" ? std::optional<std::string>(words) : std::nullopt;
  };
}

QWidget* makeOneLevel(const char* screen, const char* title, frame::MasterLevel level, session::Workplace& workplace,
                      QWidget* parent, std::vector<frame::MasterPrint> prints = {}) {
  std::vector<frame::MasterLevel> levels;
  levels.push_back(std::move(level));
  return new frame::MasterDialog(
      {.screen = screen, .title = title, .levels = std::move(levels), .prints = std::move(prints)}, workplace, parent);
}

}  // namespace

QWidget* makeRegions(session::Workplace& workplace, QWidget* parent) {
  return new frame::MasterDialog(
      {.screen = "Regions", .title = "Customer Regions", .levels = {regionLevel(), subRegionLevel()}}, workplace,
      parent);
}

QWidget* makeSectors(session::Workplace& workplace, QWidget* parent) {
  frame::MasterLevel level = namesLevel("Business sectors", "SectorID", "SectorName",
                                        "select * from Bizsectors order by SectorName", "Give sector name to save.");
  level.written.insert(level.written.begin(), {"SectorID"});
  level.tests.push_back({isTheFirst("SectorID", "You cannot modify this sector.")});
  level.givenCode = numberedBy("SectorID", "BizSectors");
  level.deletion =
      frame::MasterDeletion{.none = {"Cannot Delete", "There is no sector to be deleted."},
                            .refusals = {isTheFirst("SectorID", "You cannot delete this sector."),
                                         frame::hasRows(
                                             "select * from acclevel3 where sectorid = ",
                                             [](const MasterEntry& entry) { return entry.stored("SectorID"); },
                                             always("There have been customers recorded for the selected sector."))},
                            .question = always("Are you sure, you want to delete this sector?")};
  return makeOneLevel("Sectors", "Business Sectors", std::move(level), workplace, parent);
}

QWidget* makeInvBrands(session::Workplace& workplace, QWidget* parent) {
  return makeOneLevel(
      "InvBrands", "Inventory Brands",
      namesLevel("Brands", "BrandID", "BrandName", "select * from brands where brandid>1 order by BrandName",
                 "Give location name to save."),
      workplace, parent, brandPrints());
}

QWidget* makeInvLocations(session::Workplace& workplace, QWidget* parent) {
  frame::MasterLevel level =
      namesLevel("Inventory locations", "LocationID", "LocationName",
                 "select * from StockLocation order by LocationName", "Give location name to save.");
  level.fields.push_back({.name = "LocDesc", .caption = "Location", .column = "LocationName", .use = BoxUse::Hidden});
  // Locations are never deleted, so that the next number is the count of them with the new one.
  level.begin = [](MasterPanel& panel) {
    panel.setText("LocationID", std::to_string(panel.rows().recordCount() + 1));
    return true;
  };
  return makeOneLevel("InvLocations", "Inventory Locations", std::move(level), workplace, parent);
}

}  // namespace velmo::masters
