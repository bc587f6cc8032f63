#include "platform/MessageBox.h"

#include <cstdio>
#include <utility>

namespace plenair {

namespace {

MessageBoxProvider& Provider() {
    static MessageBoxProvider provider;
    return provider;
}

} // namespace

MessageAnswer ShowMessage(const MessageRequest& request) {
    // A copy, since the provider may put another in its place while its box is open.
    if (const MessageBoxProvider provider = Provider()) {
        return provider(request);
    }
    std::fprintf(stderr, "%s: %s\n", request.title.c_str(), request.text.c_str());
    return AnswerWhenClosed(request.buttons);
}

void SetMessageBoxProvider(MessageBoxProvider provider) {
    Provider() = std::move(provider);
}

MessageAnswer AnswerWhenClosed(MessageButtons buttons) {
    switch (buttons) {
    case MessageButtons::OkCancel:
    case MessageButtons::YesNoCancel:
    case MessageButtons::RetryCancel:
        return MessageAnswer::Cancel;
    case MessageButtons::YesNo:
        return MessageAnswer::No;
    case MessageButtons::Ok:
        break;
    }
    return MessageAnswer::Ok;
}

} // namespace plenair
