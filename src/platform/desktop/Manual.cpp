#include "platform/desktop/Manual.h"

#include "platform/desktop/Desktop.h"
#include "platform/desktop/MessageBox.h"
#include "platform/files/ProgramFolder.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <system_error>
#include <vector>

namespace plenair {

namespace {

std::vector<std::string> PlacesOfManual() {
    std::vector<std::string> places;
    for (const std::string& folder : {ProgramFolder(), DeliveryFolder()}) {
        const std::string place = folder + "/manual/manual.html";
        if (std::find(places.begin(), places.end(), place) == places.end()) {
            places.push_back(place);
        }
    }
    return places;
}

bool IsThere(const std::string& path) {
    std::error_code unknown;
    return std::filesystem::is_regular_file(path, unknown);
}

void Tell(const std::string& text) {
    ShowMessage({text, "Plenair", MessageButtons::Ok, MessageIcon::Exclamation});
}

} // namespace

void ShowManual(const std::string& anchor) {
    const std::vector<std::string> places = PlacesOfManual();
    const auto manual = std::find_if(places.begin(), places.end(), IsThere);
    if (manual == places.end()) {
        std::string text = "The manual is in none of the places where it should be:\n";
        for (const std::string& place : places) {
            text += "\n" + place;
        }
        Tell(text);
        return;
    }
    const auto open = Desktop().OpenManual;
    if (!open || !open(*manual, anchor)) {
        Tell("No browser could be started to show the manual:\n\n" + *manual);
    }
}

} // namespace plenair
