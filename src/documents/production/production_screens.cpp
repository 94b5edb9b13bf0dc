#include "documents/production/production_screens.h"

#include "documents/production/production_print.h"
#include "documents/production/production_type.h"
#include "documents/production/recipe_type.h"
#include "frame/document/document_screen.h"

namespace velmo::documents {

QWidget* makeBillofMaterial(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return new frame::DocumentScreen(billOfMaterialType(), workplace, std::move(printOuts), parent);
}

QWidget* makeProduction(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  frame::DocumentType type = productionType();
  type.print = showProductionPrint;
  return new frame::DocumentScreen(std::move(type), workplace, std::move(printOuts), parent);
}

}  // namespace velmo::documents
