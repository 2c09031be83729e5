// Prompt handler registry and the default handler.
#include <persona/framework/prompt.h>

#include <cstdio>

namespace persona {

namespace {

int DefaultPrompt(const CString& text, UINT type) {
  std::fprintf(stderr, "%s\n", text.c_str());
  return type == MB_YESNO ? IDNO : IDOK;
}

PromptHandler& Installed() {
  static PromptHandler handler;
  return handler;
}

}  // namespace

PromptHandler SetPromptHandler(PromptHandler handler) {
  PromptHandler old = std::move(Installed());
  Installed() = std::move(handler);
  return old;
}

int AfxMessageBox(const CString& text, UINT type) {
  const PromptHandler& handler = Installed();
  return handler ? handler(text, type) : DefaultPrompt(text, type);
}

}  // namespace persona
