#include "source/xml/path/xml_path_parser.hpp"

#include "source/xml/base/xml_piece.hpp"
#include "source/xml/base/xml_skip.hpp"
#include "source/xml/cursor/xml_cursor_text.hpp"
#include "source/xml/path/xml_path_builder.hpp"
#include "source/xml/path/xml_path_value.hpp"
#include "xml/xml_ns_namespace_mapping.h"

#include <algorithm>
#include <iterator>

using vo::Ref;

namespace xml {
namespace {

constexpr std::string_view xmlNamespace = "http://www.w3.org/XML/1998/namespace";

/// Reads a path from left to right. One function for each level of precedence; each gives false
/// where it has found a mistake.
class PathParser {
  public:
    PathParser(std::string_view path, XML_NS_NAMESPACE_MAP *optionalBindings, PathProgram &program,
               PathMistake &found)
        : text(path), bindings(optionalBindings), build(program), mistake(found) {}

    bool parse(Routes &routes) {
        ExprNumber expr = noExpr;
        if (!either(expr)) return false;
        if (skipSpace(), at < text.size()) return failUnexpected();
        if (build[expr].type != Type::nodes) return fail(0, "this gives a value, not nodes");
        routes = build.takeRoutes(expr);
        return true;
    }

  private:
    // ---------------------------------------------------------------- mistakes

    bool fail(size_t place, const char *what, std::string_view detail = {}) {
        mistake = {place, what, detail};
        return false;
    }

    /// Something must stand here: nothing does, or something else.
    bool missing(const char *what) { return at == text.size() ? fail(at, what) : failUnexpected(); }

    bool failUnexpected() {
        if (text[at] == '[') return fail(at, "conditions go with steps only");
        if (text[at] == '/') return fail(at, "steps follow steps only");
        for (const std::string_view arithmetic : {"+", "-", "*", "div", "mod"})
            if (text.substr(at).starts_with(arithmetic)) return fail(at, "arithmetic is not known");
        return fail(at, "this is not expected here", character());
    }

    std::string_view character() const {
        const auto *begin = bytesAt(at), *next = begin;
        (void)nextChar(next, bytesAt(text.size()));
        return text.substr(at, size_t(next - begin));
    }

    /// Counts how deep the evaluation will recurse.
    class Nesting {
      public:
        explicit Nesting(PathParser &reading) : parser(reading), before(reading.depth) {}
        Nesting(const Nesting &) = delete;
        Nesting &operator=(const Nesting &) = delete;
        ~Nesting() { parser.depth = before; }
        bool deepen() {
            constexpr int most = 200;
            if (++parser.depth <= most && !parser.build.isTooLarge()) return true;
            return parser.fail(parser.at, "this is too long or nests too deep");
        }

      private:
        PathParser &parser;
        const int before;
    };

    // ---------------------------------------------------------------- characters

    const uint8_t *bytesAt(size_t place) const {
        return reinterpret_cast<const uint8_t *>(text.data()) + place;
    }
    char charAt(size_t place) const { return place < text.size() ? text[place] : '\0'; }

    void skipSpace() {
        while (at < text.size() && isSpace(uint8_t(text[at])))
            ++at;
    }

    /// Whether the token stands here, behind white space; then it is skipped.
    bool take(std::string_view token) {
        skipSpace();
        if (!text.substr(at).starts_with(token)) return false;
        at += token.size();
        return true;
    }

    bool expect(std::string_view token, const char *otherwise) {
        return take(token) || missing(otherwise);
    }

    /// A name without colons; empty where none stands.
    std::string_view peekName() const {
        const uint8_t *begin = bytesAt(at), *end = bytesAt(text.size()), *behind = begin;
        while (behind < end && *behind != ':') {
            const uint8_t *next = behind;
            const uint32_t ch = nextChar(next, end);
            if (!(behind == begin ? isNameStart(ch) : isName(ch))) break;
            behind = next;
        }
        return text.substr(at, size_t(behind - begin));
    }

    /// An operator that is a word.
    bool takeWord(std::string_view word) {
        skipSpace();
        if (peekName() != word) return false;
        at += word.size();
        return true;
    }

    // ---------------------------------------------------------------- expressions

    using Level = bool (PathParser::*)(ExprNumber &);

    /// Operands between words of equal rank. They nest to the right, where evaluation goes on
    /// without recursion.
    bool chain(ExprNumber &expr, std::string_view word, Op op, Level level) {
        vo::Vec<ExprNumber> operands;
        do {
            if (!(this->*level)(expr)) return false;
            operands.push_back(expr);
            if (build.isTooLarge()) return fail(at, "this is too long");
        } while (takeWord(word));
        for (size_t i = operands.size() - 1; i > 0; --i)
            expr = build.operation(op, Type::boolean, build.boolean(operands[i - 1]),
                                   build.boolean(expr));
        return true;
    }

    bool either(ExprNumber &expr) { return chain(expr, "or", Op::either, &PathParser::both); }
    bool both(ExprNumber &expr) { return chain(expr, "and", Op::both, &PathParser::equality); }

    struct Operator {
        std::string_view token;
        Relation relation;
    };

    template <size_t count>
    bool comparisons(ExprNumber &expr, const Operator (&operators)[count], Level level) {
        if (!(this->*level)(expr)) return false;
        Nesting nesting(*this);
        for (;;) {
            const Operator *found = nullptr;
            for (const Operator &each : operators)
                if (!found && take(each.token)) found = &each;
            if (!found) return true;
            ExprNumber right = noExpr;
            if (!nesting.deepen() || !(this->*level)(right)) return false;
            expr = build.compare(found->relation, expr, right);
        }
    }

    bool equality(ExprNumber &expr) {
        static constexpr Operator operators[] = {{"=", Relation::equal}, {"!=", Relation::unequal}};
        return comparisons(expr, operators, &PathParser::relation);
    }
    bool relation(ExprNumber &expr) {
        static constexpr Operator operators[] = {{"<=", Relation::lessOrEqual},
                                                 {"<", Relation::less},
                                                 {">=", Relation::moreOrEqual},
                                                 {">", Relation::more}};
        return comparisons(expr, operators, &PathParser::negative);
    }

    bool negative(ExprNumber &expr) {
        size_t signs = 0;
        while (take("-"))
            ++signs;
        if (!unions(expr)) return false;
        if (signs == 0) return true;
        const bool isConstant = build[expr].op == Op::number;
        if (isConstant) {
            const double value = build[expr].value;
            expr = build.constant(signs % 2 ? -value : value);
            return true;
        }
        for (size_t i = 0; i < 2 - signs % 2; ++i)
            expr = build.operation(Op::minus, Type::number, expr);
        return true;
    }

    bool unions(ExprNumber &expr) {
        skipSpace();
        size_t begin = at;
        if (!operand(expr)) return false;
        while (take("|")) {
            if (build[expr].type != Type::nodes) return fail(begin, "'|' joins nodes only");
            Routes routes = build.takeRoutes(expr);
            skipSpace();
            begin = at;
            if (!operand(expr)) return false;
            if (build[expr].type != Type::nodes) return fail(begin, "'|' joins nodes only");
            std::ranges::move(build.takeRoutes(expr), std::back_inserter(routes));
            if (routes.size() > PathBuilder::mostRoutes) return fail(at, "this is too long");
            expr = build.nodes(std::move(routes));
        }
        return true;
    }

    bool operand(ExprNumber &expr) {
        skipSpace();
        const char first = charAt(at);
        if (first == '"' || first == '\'') return literal(expr);
        if (isDigit(uint8_t(first)) || (first == '.' && isDigit(uint8_t(charAt(at + 1)))))
            return number(expr);
        if (first == '$') return fail(at, "variables are not known");
        if (first == '(') {
            ++at;
            Nesting nesting(*this);
            return nesting.deepen() && either(expr) && expect(")", "')' is missing");
        }
        if (isCall()) return call(expr);
        Routes routes;
        if (!path(routes)) return false;
        expr = build.nodes(std::move(routes));
        return true;
    }

    bool literal(ExprNumber &expr) {
        const size_t end = text.find(text[at], at + 1);
        if (end == std::string_view::npos) return fail(at, "the end of this text is missing");
        expr = build.constant(text.substr(at + 1, end - at - 1));
        at = end + 1;
        return true;
    }

    bool number(ExprNumber &expr) {
        const size_t begin = at;
        while (isDigit(uint8_t(charAt(at))))
            ++at;
        if (charAt(at) == '.') ++at;
        while (isDigit(uint8_t(charAt(at))))
            ++at;
        expr = build.constant(numberOf(text.substr(begin, at - begin)));
        return true;
    }

    // ---------------------------------------------------------------- functions

    static constexpr std::string_view nodeTypes[] = {"node", "text", "comment",
                                                     "processing-instruction"};

    bool opensAt(size_t place) const {
        while (place < text.size() && isSpace(uint8_t(text[place])))
            ++place;
        return charAt(place) == '(';
    }

    bool isCall() const {
        const std::string_view name = peekName();
        const bool isType = std::ranges::find(nodeTypes, name) != std::end(nodeTypes);
        return !name.empty() && !isType && opensAt(at + name.size());
    }

    bool call(ExprNumber &expr) {
        const size_t begin = at;
        const std::string_view name = peekName();
        at += name.size();
        (void)take("(");
        if (name == "position") return expr = build.position(), close();
        if (name == "last") return expr = build.last(), close();
        Nesting nesting(*this);
        if (!nesting.deepen()) return false;
        if (name == "not") {
            if (!argument(expr, name)) return false;
            expr = build.operation(Op::negation, Type::boolean, build.boolean(expr));
            return close();
        }
        if (name == "count") {
            const size_t inner = at;
            if (!argument(expr, name)) return false;
            if (build[expr].type != Type::nodes) return fail(inner, "count() takes nodes");
            expr = build.operation(Op::count, Type::number, expr);
            return close();
        }
        const bool isPrefix = name == "starts-with";
        if (!isPrefix && name != "contains") return fail(begin, "this function is not known", name);
        ExprNumber part = noExpr;
        if (!argument(expr, name) || !comma() || !argument(part, name)) return false;
        expr = build.operation(isPrefix ? Op::startsWith : Op::contains, Type::boolean, expr, part);
        return close();
    }

    bool argument(ExprNumber &expr, std::string_view function) {
        skipSpace();
        if (charAt(at) == ')') return fail(at, "an argument is missing", function);
        return either(expr);
    }

    bool comma() { return take(",") || fail(at, "another argument is missing"); }
    bool close() { return expect(")", "')' is missing"); }

    // ---------------------------------------------------------------- paths

    bool path(Routes &routes) {
        Nesting nesting(*this);
        routes.emplace_back();
        skipSpace();
        routes.back().isAbsolute = charAt(at) == '/';
        bool deep = take("//");
        if (!deep && take("/") && !isStep()) return true;
        do {
            if (!nesting.deepen() || !step(routes, deep)) return false;
            deep = take("//");
        } while (deep || take("/"));
        return true;
    }

    /// Whether a step begins here.
    bool isStep() {
        skipSpace();
        const char first = charAt(at);
        return first == '.' || first == '@' || first == '*' || first == '{' || !peekName().empty();
    }

    bool step(Routes &routes, bool deep) {
        if (!isStep()) return missing("a step is missing");
        const size_t begin = at;
        Step made;
        made.deep = deep;
        if (take(".")) {
            if (charAt(at) == '.') ++at, made.axis = Step::parent;
            if (skipSpace(), charAt(at) == '[')
                return fail(at, "'.' and '..' take no conditions here");
        } else {
            made.axis = take("@") ? Step::attribute : Step::child;
            if (!nodeTest(made.test) || !conditions(made)) return false;
        }
        return build.append(routes, made) || fail(begin, "this is too long");
    }

    bool conditions(Step &made) {
        while (take("[")) {
            Nesting nesting(*this);
            ExprNumber expr = noExpr;
            if (!nesting.deepen() || !either(expr) || !expect("]", "']' is missing")) return false;
            made.conditions.push_back(build.condition(expr));
            made.isSized |= (build[made.conditions.back()].asks & asksSize) != 0;
        }
        return true;
    }

    bool nodeTest(NodeTest &test) {
        skipSpace();
        test.kind = NodeTest::named;
        if (take("*")) return test.anyName = test.anyNamespace = true;
        if (charAt(at) == '{') return bracedName(test);
        const std::string_view name = peekName();
        if (name.empty()) return missing("a name is missing");
        const size_t begin = at;
        at += name.size();
        if (text.substr(at).starts_with("::"))
            return fail(begin, "axes are known in their short form only", name);
        if (charAt(at) == ':') return qualifiedName(test, begin, name);
        if (opensAt(at)) return nodeType(test, begin, name);
        test.name = PathText(name);
        return true;
    }

    bool nodeType(NodeTest &test, size_t begin, std::string_view name) {
        static constexpr NodeTest::Kind kinds[] = {NodeTest::any, NodeTest::text, NodeTest::comment,
                                                   NodeTest::instruction};
        const auto *const found = std::ranges::find(nodeTypes, name);
        if (found == std::end(nodeTypes)) return fail(begin, "this is no type of nodes", name);
        test.kind = kinds[found - std::begin(nodeTypes)];
        (void)take("(");
        skipSpace();
        const char quote = charAt(at);
        if (test.kind == NodeTest::instruction && (quote == '"' || quote == '\'')) {
            ExprNumber target = noExpr;
            if (!literal(target)) return false;
            test.name = build[target].text;
        }
        return close();
    }

    /// `{namespace}name`, where white space belongs to the namespace.
    bool bracedName(NodeTest &test) {
        const size_t end = text.find('}', at);
        if (end == std::string_view::npos) return fail(at, "'}' is missing");
        test.ns = PathText(text.substr(at + 1, end - at - 1));
        at = end + 1;
        return localName(test);
    }

    bool localName(NodeTest &test) {
        if (charAt(at) == '*') return ++at, test.anyName = true;
        const std::string_view name = peekName();
        if (name.empty()) return fail(at, "a name is missing");
        test.name = PathText(name);
        at += name.size();
        return true;
    }

    bool qualifiedName(NodeTest &test, size_t begin, std::string_view prefix) {
        ++at;
        if (!localName(test)) return false;
        if (bindings)
            return bind(prefix, test.ns) || fail(begin, "this prefix is not bound", prefix);
        if (test.anyName) return fail(begin, "a prefix needs a binding here", prefix);
        test.name = PathText(text.substr(begin, at - begin));
        return true;
    }

    bool bind(std::string_view prefix, PathText &ns) const {
        const Ref name(voStringTryCreateFromUtf8(prefix.data(), int64_t(prefix.size())));
        const Ref mapping(xmlNsNamespaceMapMappingForPrefix(bindings, name));
        if (!mapping && prefix == "xml") return ns = PathText(xmlNamespace), true;
        if (!mapping) return false;
        const Ref bound(xmlNsNamespaceMappingNamespace(mapping));
        StringText converted;
        if (bound) ns = PathText(viewOf(converted.of(bound)));
        return true;
    }

    const std::string_view text;
    XML_NS_NAMESPACE_MAP *const bindings;
    PathBuilder build;
    PathMistake &mistake;
    size_t at = 0;
    int depth = 0;
};

} // namespace

bool parsePath(std::string_view path, XML_NS_NAMESPACE_MAP *optionalBindings, PathProgram &program,
               PathMistake &mistake) {
    if (!PathParser(path, optionalBindings, program, mistake).parse(program.routes)) return false;
    PathBuilder(program).finish();
    return true;
}

} // namespace xml
