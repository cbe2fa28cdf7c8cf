#include "archives/ax.h"

#include "store/format.h"

namespace archives {

// The rows are 3 texts each, side by side in the record: no field of its own stands for a row.
static_assert(Layout<rec::ax>::format.size() == 1 + 3 * rec::ax::kRows);

template <>
void Codec<rec::ax>::encode(const rec::ax& record, std::string& packed) {
  store::Encoder out(packed);
  out.text(record.nome);
  for (const rec::AxRow& row : record.righe)
    for (const std::string* text : {&row.conto, &row.agg, &row.segno}) out.text(*text);
}

template <>
bool Codec<rec::ax>::decode(std::string_view packed, rec::ax& record) {
  store::Decoder in(packed);
  record.nome = in.text();
  for (rec::AxRow& row : record.righe)
    for (std::string* text : {&row.conto, &row.agg, &row.segno}) *text = in.text();
  return !in.failed();
}

template <>
std::vector<std::string_view> Codec<rec::ax>::names() {
  return {"nome",    "conto1",  "agg1",  "segno1",  "conto2",  "agg2",  "segno2",  "conto3",  "agg3",
          "segno3",  "conto4",  "agg4",  "segno4",  "conto5",  "agg5",  "segno5",  "conto6",  "agg6",
          "segno6",  "conto7",  "agg7",  "segno7",  "conto8",  "agg8",  "segno8",  "conto9",  "agg9",
          "segno9",  "conto10", "agg10", "segno10", "conto11", "agg11", "segno11", "conto12", "agg12",
          "segno12", "conto13", "agg13", "segno13", "conto14", "agg14", "segno14"};
}

}  // namespace archives
