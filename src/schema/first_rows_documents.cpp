#include "schema/document_kinds.h"
#include "schema/first_rows.h"
#include "store/recordset/recordset.h"

namespace velmo::schema {

void writeDocumentTypes(store::Connection& connection) {
  store::Recordset rows(connection, "select * from TranType");
  for (const DocumentKind& kind : documentKinds())
    rows.addNew(
        {{"TranType", kind.tranType}, {"Name", std::string(kind.name)}, {"short", std::string(kind.shortName)}});
}

}  // namespace velmo::schema
