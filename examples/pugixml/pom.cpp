// Sets the version of a dependency in a Maven project, in place: pom FILE ARTIFACT VERSION
#include <iostream>
#include <pugixml.hpp>
#include <string_view>

int main(int argc, char **argv) {
    if (argc != 4) return 2;
    pugi::xml_document pom;
    auto loaded = pom.load_file(argv[1], pugi::parse_full | pugi::parse_ws_pcdata);
    if (!loaded) {
        std::cerr << argv[1] << ": " << loaded.description() << '\n';
        return 1;
    }

    auto dependencies = pom.child("project").child("dependencies");
    for (const auto &dependency : dependencies.children("dependency")) {
        auto artifact = dependency.child("artifactId");
        if (!artifact || artifact.text().get() != std::string_view(argv[2])) continue;
        if (auto version = dependency.child("version")) version.text().set(argv[3]);
    }
    if (!pom.save_file(argv[1], "", pugi::format_raw)) {
        std::cerr << argv[1] << ": cannot be written\n";
        return 1;
    }
}
