#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <variant>

#include "archives/ax.h"
#include "archives/catalogue.h"
#include "archives/civa.h"
#include "archives/cpag.h"
#include "archives/ct.h"
#include "archives/dataz.h"
#include "archives/fa.h"
#include "archives/ff.h"
#include "archives/fields.h"
#include "archives/ia.h"
#include "archives/ic.h"
#include "archives/iv.h"
#include "archives/mc.h"
#include "archives/param.h"
#include "archives/pc.h"
#include "archives/pr.h"
#include "archives/sd.h"
#include "archives/sf.h"
#include "archives/si.h"
#include "archives/st.h"
#include "archives/tt.h"

using namespace archives;

namespace {

// A value that no other field of the record has.
void fill(std::string& value, int number) { value = "testo è " + std::to_string(number); }
void fill(double& value, int number) { value = number + 0.25; }
void fill(std::int16_t& value, int number) { value = static_cast<std::int16_t>(-number); }
void fill(std::int32_t& value, int number) { value = 100000 + number; }
template <class T>
void fill(std::vector<T>& values, int number) {
  fill(values[1], number);
  fill(values[3], number + 500);
}

}  // namespace

TEST_CASE_TEMPLATE("a record comes back as it was, by its struct and by its names", R, rec::dataz, rec::civa,
                   rec::cpag, rec::param, rec::ct, rec::pr, rec::pc, rec::mc, rec::tt, rec::iv, rec::ia,
                   rec::ic, rec::ax, rec::si, rec::sd, rec::st, rec::sf, rec::fa, rec::ff) {
  const Entry* entry = find(Layout<R>::prefix);
  REQUIRE(entry);
  std::string empty;
  encode(R{}, empty);
  auto named = fieldsOf(*entry, empty);
  CHECK(packedOf(*entry, named) == empty);

  int number = 0;
  for (NamedField& field : named) std::visit([&](auto& value) { fill(value, ++number); }, field.value);
  const std::string packed = packedOf(*entry, named);
  R read;
  REQUIRE(decode(packed, read));
  std::string again;
  encode(read, again);  // a member told twice would come back in both fields
  CHECK(again == packed);

  REQUIRE(decode(empty, read));  // over a record that was full
  encode(read, again);
  CHECK(again == empty);
  CHECK_FALSE(decode(std::string_view(packed).substr(1), read));
}

TEST_CASE("a member stands under its own name") {
  rec::mc row;
  row.conto = "00012";
  row.avere = 0.5;
  std::string packed;
  encode(row, packed);
  const auto fields = fieldsOf(*find("mc"), packed);
  const auto valueOf = [&](std::string_view name) {
    return std::find_if(fields.begin(), fields.end(), [&](const auto& f) { return f.name == name; })->value;
  };
  CHECK(std::get<std::string>(valueOf("conto")) == "00012");
  CHECK(std::get<double>(valueOf("avere")) == 0.5);
}

TEST_CASE("arrays are kept up to their last used element") {
  rec::pc voice;
  std::string empty, filled;
  encode(voice, empty);
  voice.destcitta[2] = "Forlì";
  encode(voice, filled);
  CHECK(filled.size() == empty.size() + 2 + std::string("Forlì").size() + 1);
}

TEST_CASE("fields are set by name when the value fits") {
  const Entry& parameters = *find("param");
  auto fields = fieldsOf(parameters, {});
  CHECK(setField(fields, "carattere", "Courier New"));
  CHECK(setField(fields, "bollosoglia1", "77.47"));
  CHECK(setField(fields, "maxricerca", 50.0));
  CHECK(setField(fields, "coloresfondo", "12632256"));
  const Scalar looks[] = {"", "Scatola", "Pallet"};
  CHECK(setField(fields, "aspetticolli", looks));
  CHECK(setField(fields, "aspetticolli", std::span(looks, 2)));

  CHECK_FALSE(setField(fields, "nessuno", "x"));
  CHECK_FALSE(setField(fields, "carattere", 1.0));
  CHECK_FALSE(setField(fields, "carattere", looks));
  CHECK_FALSE(setField(fields, "aspetticolli", "Scatola"));
  CHECK_FALSE(setField(fields, "testosollecito", std::vector<Scalar>(22, "riga")));
  for (const Scalar& wrong : {Scalar("77,47"), Scalar("1e3"), Scalar(" 1"), Scalar("nan"), Scalar(HUGE_VAL)})
    CHECK_FALSE(setField(fields, "bollosoglia1", wrong));
  for (const Scalar& wrong : {Scalar(32768.0), Scalar(-32769.0), Scalar(1.5), Scalar("50 righe")})
    CHECK_FALSE(setField(fields, "maxricerca", wrong));

  rec::param read;
  REQUIRE(decode(packedOf(parameters, fields), read));
  CHECK(read.carattere == "Courier New");
  CHECK(read.bollosoglia1 == 77.47);
  CHECK(read.maxricerca == 50);
  CHECK(read.coloresfondo == 12632256);
  CHECK(read.aspetticolli[1] == "Scatola");
  CHECK(read.aspetticolli[2].empty());
}
