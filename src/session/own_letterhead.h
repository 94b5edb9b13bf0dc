#pragma once

// The values of print formats in LoginContext that leave the head of a page to the company's own paper. Those of sale
// invoices stand ten above the layout.
namespace velmo::session::on_letterhead {

inline constexpr int quotation = 11;  // qf
inline constexpr int order = 2;       // pof and dcf

}  // namespace velmo::session::on_letterhead
