/// What a virtual desktop leaves of a failed test.
#include "VirtualDesktop/VirtualDesktop.hpp"

#include <algorithm>
#include <fstream>

namespace vireline::desktop {

namespace fs = std::filesystem;

void VirtualDesktop::leaveEvidence(const fs::path& folder, const std::string& name) const {
    fs::create_directories(folder);
    Picture::ofScreen(*client_).writePNG(folder / (name + ".png"));
    std::ofstream logs{folder / (name + ".log")};
    for (const auto& dock : docks().shown()) {
        logs << "== dock " << dock << "\noutline:";
        for (const auto& part : docks().outline(dock.window))
            logs << ' ' << part;
        logs << "\ninput:";
        for (const auto& part : docks().inputRegion(dock.window))
            logs << ' ' << part;
        for (const auto top : client_->children(client_->root())) {
            const auto inside = client_->children(top);
            if (std::ranges::find(inside, dock.window) == inside.end())
                continue;
            logs << "\nframe:";
            for (const auto& part : docks().outline(top))
                logs << ' ' << part;
        }
        logs << '\n';
    }
    logs << "== vireline.log\n" << readFile(log().file());
    for (const auto& file : fs::directory_iterator{home_.scratch()}) {
        const auto extension = file.path().extension();
        if (extension == ".log" || extension == ".out" || extension == ".err")
            logs << "== " << file.path().filename().string() << '\n' << readFile(file.path());
    }
}

}
