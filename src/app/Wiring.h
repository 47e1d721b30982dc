#pragma once

/// Joins the rooms of the program: registers the protocols, and installs the hooks by which the
/// lower ones cause something in the higher ones. Called once, before any connection.
namespace Wiring
{

/// Everything below the window: parser, client, pushes, the clearing of the mirror.
void joinNetwork();
/// What needs the window of `Data::webView`: script calls, login pages, the end of the program.
void joinView();
/// The messages about a live broadcast with the microphone of `Data::audioManager`.
void joinAudio();

} // namespace Wiring
