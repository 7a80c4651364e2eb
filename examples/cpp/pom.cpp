// Sets the version of a dependency in a Maven project, in place: pom FILE ARTIFACT VERSION
#include <iostream>
#include <voxml.hpp>

int main(int argc, char **argv) {
    if (argc != 4) return 2;
    auto pom = voxml::document::decode_file(argv[1]);
    if (!pom) return std::cerr << pom.error().to_string() << '\n', 1;

    pom->edit_root([&](voxml::element &project) {
        project.edit_child("dependencies", [&](voxml::element &dependencies) {
            dependencies.edit_children("dependency", [&](voxml::element &dependency) {
                auto artifact = dependency.child("artifactId");
                if (!artifact || artifact->text().value() != argv[2]) return;
                dependency.edit_child("version", [&](auto &v) { v.set_text(argv[3]).value(); });
            });
        });
    });
    auto written = pom->encode_file(argv[1]);
    if (!written) return std::cerr << written.error().to_string() << '\n', 1;
}
