// The forms of the journal, for the table of units.
#pragma once

#include <memory>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

std::unique_ptr<ui::Form> makeAmc(Session& session);
std::unique_ptr<ui::Form> makeRico(Session& session);
std::unique_ptr<ui::Form> makeAnnriva(Session& session);
std::unique_ptr<ui::Form> makeAnnsr(Session& session);
std::unique_ptr<ui::Form> makeMcca(Session& session);
std::unique_ptr<ui::Form> makeMcca2(Session& session);
std::unique_ptr<ui::Form> makeMcca3(Session& session);
std::unique_ptr<ui::Form> makeMcco(Session& session);
std::unique_ptr<ui::Form> makeMcco2(Session& session);
std::unique_ptr<ui::Form> makeMccv(Session& session);
std::unique_ptr<ui::Form> makeMccv2(Session& session);
std::unique_ptr<ui::Form> makeMcfa(Session& session);
std::unique_ptr<ui::Form> makeMcfa2(Session& session);
std::unique_ptr<ui::Form> makeMcfa3(Session& session);
std::unique_ptr<ui::Form> makeMcfv(Session& session);
std::unique_ptr<ui::Form> makeMcfv2(Session& session);
std::unique_ptr<ui::Form> makeRmiva(Session& session);
std::unique_ptr<ui::Form> makeMcif(Session& session);
std::unique_ptr<ui::Form> makeMcif2(Session& session);
std::unique_ptr<ui::Form> makeMcifac(Session& session);
std::unique_ptr<ui::Form> makeMcpf(Session& session);
std::unique_ptr<ui::Form> makeMcpf2(Session& session);
std::unique_ptr<ui::Form> makeMcpfac(Session& session);
std::unique_ptr<ui::Form> makeMcmg(Session& session);
std::unique_ptr<ui::Form> makeMcmg2(Session& session);
std::unique_ptr<ui::Form> makeMcmg3(Session& session);
std::unique_ptr<ui::Form> makeMcxx(Session& session);
std::unique_ptr<ui::Form> makeRegxx(Session& session);
std::unique_ptr<ui::Form> makeVmc(Session& session);

}  // namespace tarvex
