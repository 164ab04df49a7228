// ombrin-skin: how the client looks, from its next start on.
#include "foundation/text.h"
#include "hosts/skin/screen.h"
#include "hosts/skin/table.h"
#include "ui/layout.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <iostream>

namespace ombrin::skin {

namespace {

struct Options {
    std::optional<std::string> home;
    std::string name, size = "992x754";
    PreviewOptions preview;
};

void List(Wardrobe& wardrobe) {
    Table table;
    for (const Wardrobe::Row& row : wardrobe.Rows())
        table.push_back({row.inUse ? "*" : " ", row.skin.name, row.skin.title, row.skin.author,
                         row.fault.empty() ? row.skin.folder : "cannot be used: " + row.fault});
    if (table.empty())
        std::cout << "There are no skins in " << wardrobe.Skins().Shared() << " and " << wardrobe.Skins().Own() << "\n";
    else
        std::cout << Aligned(table);
}

void Use(Wardrobe& wardrobe, const std::string& name) {
    const Skin skin = wardrobe.Use(name);
    std::cout << "Ombrin shows " << skin.name << " from its next start on.\n";
}

void Remove(Wardrobe& wardrobe) {
    const std::string name = wardrobe.Remove();
    if (name.empty())
        std::cout << "No skin is in use.\n";
    else
        std::cout << "Ombrin has its built-in look again from its next start on.\n";
}

/// "992x754"
void TakeSize(const std::string& text, PreviewOptions& preview) {
    constexpr int kLargest = 4096;
    char rest = 0;
    const bool isSize = std::sscanf(text.c_str(), "%5dx%5d%c", &preview.width, &preview.height, &rest) == 2;
    if (!isSize || preview.width < Layout::kLeastWidth || preview.height < Layout::kLeastHeight ||
        preview.width > kLargest || preview.height > kLargest)
        throw CLI::ValidationError("--size", Join("is ", std::to_string(Layout::kLeastWidth), "x",
                                                  std::to_string(Layout::kLeastHeight), " to 4096x4096"));
}

int Run(int argc, char** argv) {
    Options options;
    CLI::App app{"How Ombrin looks. A client that is running shows a change at its next start.", "ombrin-skin"};
    app.set_version_flag("--version", "ombrin-skin " OMBRIN_VERSION, "Print the version and exit");
    app.add_option("--home", options.home, "Folder of the client's files; made when missing")->type_name("DIR");
    app.require_subcommand(0, 1);
    app.fallthrough();
    const auto* list = app.add_subcommand("list", "Name the skins that are there; the one in use has a star");
    auto* use = app.add_subcommand("use", "Put a skin on");
    const auto* remove = app.add_subcommand("remove", "Go back to the built-in look");
    auto* preview = app.add_subcommand("preview", "Show the main view in a skin");
    for (auto* command : {use, preview}) command->add_option("NAME", options.name, "As in the list")->required();
    preview->add_option("--out", options.preview.out, "Write a picture instead of opening a window")->type_name("FILE");
    preview->add_option("--size", options.size, "Of the view; 992x754 unless given")->type_name("WxH");
    preview->add_option("--scale", options.preview.scale, "Pixels of the screen for one of the view")
        ->check(CLI::Range(kLeastScale, kLargestScale));
    try {
        app.parse(argc, argv);
        TakeSize(options.size, options.preview);
    } catch (const CLI::ParseError& problem) {
        return app.exit(problem) == 0 ? 0 : 2;
    }
    if (app.get_subcommands().empty() && !HasScreen()) {
        std::cout << app.help();
        return 0;
    }
    Wardrobe wardrobe(options.home);
    if (*list)
        List(wardrobe);
    else if (*use)
        Use(wardrobe, options.name);
    else if (*remove)
        Remove(wardrobe);
    else if (*preview)
        ShowPreview(wardrobe, options.name, options.preview);
    else
        ShowChooser(wardrobe);
    return 0;
}

} // namespace

} // namespace ombrin::skin

int main(int argc, char** argv) {
    try {
        return ombrin::skin::Run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "ombrin-skin: " << error.what() << "\n";
        return 1;
    }
}
