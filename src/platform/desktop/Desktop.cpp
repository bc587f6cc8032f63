#include "platform/desktop/Desktop.h"

#include "platform/desktop/Clock.h"
#include "platform/desktop/Editor.h"
#include "platform/desktop/Sound.h"
#include "platform/files/FileProgress.h"
#include "platform/files/Folders.h"

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

namespace plenair {

namespace {

LocalTime SystemTime() {
    const auto now =
        std::chrono::time_point_cast<std::chrono::milliseconds>(std::chrono::system_clock::now());
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    const auto sinceSecond = now - std::chrono::system_clock::from_time_t(seconds);
    std::tm parts{};
    localtime_r(&seconds, &parts);
    return {
        .Year = parts.tm_year + 1900,
        .Month = parts.tm_mon + 1,
        .Day = parts.tm_mday,
        .Hour = parts.tm_hour,
        .Minute = parts.tm_min,
        .Second = parts.tm_sec,
        .Millisecond =
            static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(sinceSecond).count()),
    };
}

// Whatever calls a service here calls a copy of it, since another may be put in its place while a dialog is
// open.

bool Show(DialogKind kind, CommonDialog& dialog) {
    const auto show = Desktop().ShowDialog;
    if (show && show(kind, dialog)) {
        return true;
    }
    dialog.FileName.clear();
    if (dialog.CancelError) {
        throw DialogCancelled();
    }
    return false;
}

void TakeFile(CommonDialog& dialog, std::filesystem::path file) {
    dialog.FileName = file.string();
    dialog.FileTitle = file.filename().string();
    if (file.has_parent_path()) {
        EnterFolder(file.parent_path().string());
    }
}

} // namespace

DesktopServices& Desktop() {
    static DesktopServices s_services;
    return s_services;
}

MessageAnswer ShowMessage(const MessageRequest& request) {
    if (const auto ask = Desktop().AskByMessageBox) {
        return ask(request);
    }
    std::fprintf(stderr, "%s: %s\n", request.Title.c_str(), request.Text.c_str());
    return AnswerWhenClosed(request.Buttons);
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

std::string AskForText(const InputRequest& request) {
    const auto ask = Desktop().AskByInputBox;
    return ask ? ask(request) : std::string();
}

void CommonDialog::ShowSave() {
    if (Show(DialogKind::Save, *this)) {
        TakeFile(*this, WithDefaultExt(*this));
    }
}

void CommonDialog::ShowOpen() {
    if (Show(DialogKind::Open, *this)) {
        std::error_code unknown;
        const bool isThere = std::filesystem::exists(FileName, unknown);
        TakeFile(*this, isThere ? FileName : WithDefaultExt(*this));
    }
}

void CommonDialog::ShowPrinter() {
    Show(DialogKind::Printer, *this);
}

Progress::Progress(const ProgressRequest& request) {
    if (const auto start = Desktop().StartProgress) {
        m_step = start(request);
    }
}

Waiting::Waiting() {
    if (const auto start = Desktop().StartWaiting) {
        m_goOn = start();
    }
}

FileProgress ShowFileProgress(const std::string& text, const std::string& title) {
    constexpr std::uint64_t kStep = 1024; // bytes, so that an int can count them
    return [text, title, shown = std::shared_ptr<Progress>()](std::uint64_t done, std::uint64_t all) mutable {
        if (!shown) {
            shown = std::make_shared<Progress>(ProgressRequest{text, title, static_cast<int>(all / kStep)});
        }
        if (!shown->GoOn(static_cast<int>(done / kStep))) {
            throw DialogCancelled();
        }
    };
}

void PlaySoundA(const std::string& name, unsigned flags) {
    if (const auto play = Desktop().PlaySound) {
        play(name, flags);
    }
}

bool OpenInEditor(const std::string& path) {
    const auto start = Desktop().StartEditor;
    return start && start(path);
}

void Beep() {
    if (const auto beep = Desktop().Beep) {
        beep();
    }
}

void CopyToClipboard(const ClipboardContent& content) {
    if (const auto copy = Desktop().Copy) {
        copy(content);
    }
}

void RunLater(int milliseconds, std::function<void()> action) {
    if (const auto run = Desktop().RunLater) {
        run(milliseconds, std::move(action));
    }
}

void SetMousePointer(MousePointer pointer) {
    if (const auto show = Desktop().ShowPointer) {
        show(pointer);
    }
}

LocalTime Now() {
    const auto clock = Desktop().Clock;
    return clock ? clock() : SystemTime();
}

} // namespace plenair
