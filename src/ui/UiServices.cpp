#include "ui/UiServices.h"

#include <algorithm>
#include <array>

namespace orbelan {

namespace {

using enum MessageAnswer;

constexpr std::array kOK{OK};
constexpr std::array kOKCancel{OK, Cancel};
constexpr std::array kAbortRetryIgnore{Abort, Retry, Ignore};
constexpr std::array kYesNoCancel{Yes, No, Cancel};
constexpr std::array kYesNo{Yes, No};
constexpr std::array kRetryCancel{Retry, Cancel};

constexpr std::array kAllAnswers{OK, Cancel, Abort, Retry, Ignore, Yes, No};

} // namespace

UiServices::~UiServices() = default;

std::span<const MessageAnswer> buttonsOf(MessageButtons buttons)
{
    switch (buttons) {
    case MessageButtons::OK: return kOK;
    case MessageButtons::OKCancel: return kOKCancel;
    case MessageButtons::AbortRetryIgnore: return kAbortRetryIgnore;
    case MessageButtons::YesNoCancel: return kYesNoCancel;
    case MessageButtons::YesNo: return kYesNo;
    case MessageButtons::RetryCancel: return kRetryCancel;
    }
    return kOK;
}

MessageAnswer defaultAnswer(MessageButtons buttons)
{
    return buttonsOf(buttons).front();
}

bool offers(MessageButtons buttons, MessageAnswer answer)
{
    return std::ranges::find(buttonsOf(buttons), answer) != buttonsOf(buttons).end();
}

QString iconName(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::None: return QStringLiteral("none");
    case MessageIcon::Critical: return QStringLiteral("critical");
    case MessageIcon::Question: return QStringLiteral("question");
    case MessageIcon::Exclamation: return QStringLiteral("exclamation");
    case MessageIcon::Information: return QStringLiteral("information");
    }
    return QStringLiteral("none");
}

QString answerName(MessageAnswer answer)
{
    switch (answer) {
    case OK: return QStringLiteral("OK");
    case Cancel: return QStringLiteral("Cancel");
    case Abort: return QStringLiteral("Abort");
    case Retry: return QStringLiteral("Retry");
    case Ignore: return QStringLiteral("Ignore");
    case Yes: return QStringLiteral("Yes");
    case No: return QStringLiteral("No");
    }
    return QStringLiteral("OK");
}

std::optional<MessageAnswer> parseAnswer(const QString& name)
{
    const QString wanted = name.trimmed();
    for (MessageAnswer answer : kAllAnswers) {
        if (answerName(answer).compare(wanted, Qt::CaseInsensitive) == 0)
            return answer;
    }
    return std::nullopt;
}

} // namespace orbelan
