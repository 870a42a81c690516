#pragma once

namespace tallybrook {

/// Keeps what the toolkit remarks about the platform off standard error, which is for the play's own message.
/// Failures of the toolkit are still written.
void passOverToolkitNotes();

}  // namespace tallybrook
