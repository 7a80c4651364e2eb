// Puts the parts of a program together as they are read.
#pragma once

#include "source/xml/path/xml_path_program.hpp"

#include <utility>

namespace xml {

class PathBuilder {
  public:
    /// Of one path.
    static constexpr size_t mostRoutes = 100;

    explicit PathBuilder(PathProgram &built) : program(built) {}

    const Expr &operator[](ExprNumber expr) const { return program.exprs[expr]; }
    bool isTooLarge() const { return program.exprs.size() > mostExprs; }

    // ---------------------------------------------------------------- routes

    /// The routes of an expression that is not used any more.
    Routes takeRoutes(ExprNumber nodes) { return std::move(program.exprs[nodes].routes); }

    /// Leads all routes one step further. False if that takes too many routes.
    bool append(Routes &routes, const Step &step);

    // ---------------------------------------------------------------- expressions

    ExprNumber constant(double value);
    ExprNumber constant(std::string_view text);
    ExprNumber nodes(Routes routes);
    ExprNumber position() { return add({Op::position, Type::number, asksHere}); }
    ExprNumber last() { return add({Op::last, Type::number, asksHere | asksSize}); }

    /// An expression of one or two others. What these ask at the parent or at the top alone is
    /// asked there once for all, unless that goes for the whole expression.
    ExprNumber operation(Op op, Type type, ExprNumber left);
    ExprNumber operation(Op op, Type type, ExprNumber left, ExprNumber right);
    ExprNumber compare(Relation relation, ExprNumber left, ExprNumber right);

    /// The expression as a boolean.
    ExprNumber boolean(ExprNumber expr);
    /// The condition that it is in brackets.
    ExprNumber condition(ExprNumber expr);

    /// Computes what the program as a whole needs.
    void finish();

  private:
    static constexpr size_t mostExprs = 1 << 16;

    ExprNumber add(Expr expr);
    bool climb(Route route, Routes &climbed);
    ExprNumber lift(ExprNumber expr);
    template <class Visit> void visitOperands(ExprNumber expr, Visit visit);
    int64_t highest(const Routes &routes, int64_t level) const;
    int64_t highest(ExprNumber expr, int64_t level) const;

    PathProgram &program;
};

} // namespace xml
