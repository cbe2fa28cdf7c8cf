#include "driver/match.h"

#include <doctest/doctest.h>

namespace {

std::string compare(const char* answer, const char* wanted) {
  return test::mismatch(nlohmann::json::parse(answer), nlohmann::json::parse(wanted));
}

}  // namespace

TEST_CASE("an expectation asks for what it names and for nothing else") {
  CHECK(compare(R"({"ok":true,"n":1})", R"({"ok":true})").empty());
  CHECK(compare(R"({"a":{"b":[{"c":1,"d":2}]}})", R"({"a":{"b":[{"c":1}]}})").empty());
  CHECK(compare(R"({"a":7,"b":"x"})", R"({"a":"<any>","b":"<any>"})").empty());
  CHECK(compare(R"({"a":[1,2,3]})", R"({"a":[1,"<rest>"]})").empty());
  CHECK(compare(R"({"a":[1]})", R"({"a":[1,"<rest>"]})").empty());
  CHECK(compare(R"({"a":1000})", R"({"a":1000.0})").empty());
}

TEST_CASE("a mismatch tells where it is and what stands there") {
  CHECK(compare(R"({"ok":false})", R"({"ok":true})") == "/ok is false");
  CHECK(compare(R"({"ok":true})", R"({"error":"<any>"})") == "/error is missing");
  CHECK(compare(R"({"a":[1,{"b":"x"}]})", R"({"a":[1,{"b":"y"}]})") == R"(/a/1/b is "x")");
  CHECK(compare(R"({"a":[1,2]})", R"({"a":[1]})") == "/a is [1,2]");
  CHECK(compare(R"({"a":[]})", R"({"a":[1,"<rest>"]})") == "/a is []");
  CHECK(compare(R"({"a":"1"})", R"({"a":1})") == R"(/a is "1")");
  CHECK(compare(R"({"a":1})", R"({"a":{"b":1}})") == "/a is 1");
}
