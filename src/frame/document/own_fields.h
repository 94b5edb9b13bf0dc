#pragma once

#include <map>
#include <string>
#include <string_view>

#include "frame/document/document_type.h"
#include "store/recordset/recordset.h"
#include "text/date_time.h"

namespace velmo::frame {

// The controls of a document's own fields, and the values of those that have none.
class OwnFields {
 public:
  explicit OwnFields(const std::vector<DocumentField>& fields);

  // Makes the control of a field; its owner is the layout that it is put into.
  QWidget* makeControl(const DocumentField& field);

  void setInitial(const text::DateTime& today);
  void show(const store::Recordset& tran);
  std::map<std::string, std::string, std::less<>> texts() const;

  std::string text(std::string_view name) const;
  void setText(std::string_view name, const std::string& text);

 private:
  const std::vector<DocumentField>& fields_;
  std::map<std::string_view, QWidget*> controls_;
  std::map<std::string_view, std::string> unseen_;
};

}  // namespace velmo::frame
