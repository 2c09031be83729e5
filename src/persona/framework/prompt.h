// The user prompts of the library: a message with an OK button and a Yes/No question, routed
// to a handler that the application installs. The default handler writes the message to
// standard error and answers No, so a library without a user interface never writes over a
// file on its own.
#pragma once

#include <persona/export.h>

#include <functional>

#include <persona/framework/cstring.h>
#include <persona/framework/types.h>

namespace persona {

// Button sets and answers, with the framework's values.
enum : UINT { MB_OK = 0x0, MB_YESNO = 0x4 };
enum : int { IDOK = 1, IDYES = 6, IDNO = 7 };

// Shows text with the buttons of type (MB_OK or MB_YESNO) and returns the answer (IDOK, IDYES
// or IDNO).
using PromptHandler = std::function<int(const CString& text, UINT type)>;

// Installs handler and returns the one it replaces; an empty handler restores the default.
PERSONA_EXPORT PromptHandler SetPromptHandler(PromptHandler handler);

// Shows a message or asks a question through the installed handler; returns its answer.
PERSONA_EXPORT int AfxMessageBox(const CString& text, UINT type = MB_OK);

}  // namespace persona
