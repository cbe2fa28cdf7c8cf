// Small forms for the tests of the driver, under names that the menu knows.
#pragma once

#include "driver/play.h"

namespace test {

// Plays `script` on the sample forms, with `start` in front (its answer is left out):
//
// mcfv      one control of each kind; "Chiedi" asks three questions (yes/no by default no, yes/no/cancel,
//           ok/cancel) and then beeps; "Apri" runs RPC and then beeps; "Errore" ends in a run-time error;
//           "Archivio" asks for a file and shows its path; "Stampa" previews, then prints.
// RPC       modal from mcfv: "Ancora" runs RCLIENTE; "Fine" closes it and then shows a box.
// RCLIENTE  its closing box asks first; the answer no keeps it.
Played playSamples(std::string_view script, const std::filesystem::path& pdfProgram = {});

}  // namespace test
