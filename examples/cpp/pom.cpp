// Sets the version of a dependency in a Maven project, in place: pom FILE ARTIFACT VERSION
#include <iostream>
#include <voxml.hpp>

int main(int argc, char **argv) {
    if (argc != 4) return 2;
    auto pom = voxml::document::decode_file(argv[1]);
    if (!pom) return std::cerr << pom.error().to_string() << '\n', 1;

    auto changed = pom->edit_root([&](auto &project) {
        return project.edit_child("dependencies", [&](auto &dependencies) {
            return dependencies.edit_children("dependency", [&](auto &one) -> voxml::result<bool> {
                auto artifact = one.child("artifactId");
                if (!artifact || artifact->text() != argv[2]) return false;
                return one.edit_child("version", [&](auto &v) { return v.set_text(argv[3]); });
            });
        });
    });
    if (!changed) return std::cerr << changed.error().to_string() << '\n', 1;
    auto written = pom->encode_file(argv[1]);
    if (!written) return std::cerr << written.error().to_string() << '\n', 1;
}
