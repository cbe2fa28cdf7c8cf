// A station of an installation, for tests: a session on a directory with a desk that a test answers.
#pragma once

#include <signal.h>
#include <sys/resource.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "app/units.h"
#include "session/frame.h"
#include "session/session.h"
#include "ui/fake_desk.h"

namespace test {

using Act = std::function<void(ui::Form&)>;

struct Station {
  explicit Station(const std::filesystem::path& directory, std::string today = "15/01/2003")
      : session({directory, directory, TARVEX_SOURCE_DIR "/data", common::Clock(std::move(today), "10:30")},
                desk, tarvex::units()) {}
  ~Station() { desk.previews.clear(); }  // a report that is not whole reads the session's archives

  // The start-up, with what the user does in SCELTA.
  bool start(Act scelta) {
    desk.modal["SCELTA"] = std::move(scelta);
    return frame.start();
  }

  FakeDesk desk;
  tarvex::Session session;
  tarvex::Frame frame{session};
};

// From here on this process writes no file beyond `bytes`, as if the disk were full. For a forked child.
inline void fillDisk(rlim_t bytes) {
  ::signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{bytes, bytes};
  ::setrlimit(RLIMIT_FSIZE, &limit);
}

inline void leave(ui::Form& form) { form.close(); }  // by the closing box

inline Act choose(const std::string& company, const std::string& year) {
  return [=](ui::Form& form) {
    Hands hands(form);
    hands.pick("Combo1", company);
    hands.pick("Combo2", year);
    hands.press("ok");
  };
}

inline void fillCompany(ui::Form& form, const std::string& name, const std::string& year) {
  Hands hands(form);
  hands.set("text1", name);
  hands.set("text2", "Via Roma 1");
  hands.set("text3", "Torino");
  hands.set("text4", "00488410010");
  hands.set("text5", year);
  hands.press("ok");
}

// In SCELTA: a new company through its button.
inline Act found(FakeDesk& desk, const std::string& name, const std::string& year) {
  return [=, &desk](ui::Form& form) {
    desk.modal["APRIAZ"] = [=](ui::Form& apriaz) { fillCompany(apriaz, name, year); };
    Hands(form).press("nuova");
  };
}

}  // namespace test
