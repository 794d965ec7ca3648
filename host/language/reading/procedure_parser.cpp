// Parses Subs and Functions.
#include "language/reading/statement_parser.h"

namespace host::language {

// If the first line of a procedure has an error, its body is parsed but dropped.
syntax::Statement StatementParser::procedure(Offset offset, bool isFunction) {
    const Opening opening = isFunction ? Opening{offset, "Function", "End Function", Keyword::end, Keyword::function}
                                       : Opening{offset, "Sub", "End Sub", Keyword::end, Keyword::sub};
    syntax::Procedure form;
    try {
        form.name = name(isFunction ? "the function's name" : "the sub's name");
        form.parameters = parameters();
        if (isFunction) {
            tokens_.expect(Keyword::as, "'As'");
            form.result = typeName();
        }
        if (!tokens_.atStatementEnd()) tokens_.failExpected("the end of the line");
    } catch (const SyntaxError& error) {
        syntax::Broken left = broken(error, offset);
        block(opening);
        return {offset, std::move(left)};
    }
    form.block = block(opening);
    return {offset, std::move(form)};
}

std::vector<syntax::Parameter> StatementParser::parameters() {
    std::vector<syntax::Parameter> list;
    if (!tokens_.accept(TokenKind::openParenthesis) || tokens_.accept(TokenKind::closeParenthesis)) return list;
    do {
        const Offset offset = tokens_.peek().offset;
        if (!list.empty() && list.back().paramArray) throw SyntaxError{offset, "nothing can follow a ParamArray"};
        list.push_back(parameter());
        if (list.size() > 1 && list[list.size() - 2].defaultValue && !list.back().defaultValue && !list.back().paramArray)
            throw SyntaxError{offset, "a parameter after one with a default needs a default too"};
    } while (tokens_.accept(TokenKind::comma));
    tokens_.expect(TokenKind::closeParenthesis, "',' or ')'");
    return list;
}

syntax::Parameter StatementParser::parameter() {
    syntax::Parameter form = {};
    form.byRef = tokens_.accept(Keyword::byRef);
    form.paramArray = !form.byRef && tokens_.accept(Keyword::paramArray);
    const bool optional = !form.byRef && !form.paramArray && tokens_.accept(Keyword::optional);
    if (!form.byRef && !form.paramArray) tokens_.accept(Keyword::byVal);
    form.name = name("a parameter's name");
    const bool isArray = tokens_.accept(TokenKind::openParenthesis);
    if (isArray) tokens_.expect(TokenKind::closeParenthesis, "')'");
    tokens_.expect(Keyword::as, "'As' and the parameter's type");
    const Offset offset = tokens_.peek().offset;
    form.type = typeName();
    if (form.type.isArray && (isArray || form.paramArray)) failDimensions(offset);
    form.type.isArray = form.type.isArray || isArray || form.paramArray;
    if (optional && !tokens_.at(TokenKind::equal)) tokens_.failExpected("'=' and a default");
    if (form.byRef || form.paramArray) return form;
    if (tokens_.accept(TokenKind::equal)) form.defaultValue = expressions_.expression();
    return form;
}

syntax::TypeName StatementParser::typeName() {
    syntax::TypeName type{name("a type"), false};
    type.isArray = tokens_.accept(TokenKind::openParenthesis);
    if (type.isArray) tokens_.expect(TokenKind::closeParenthesis, "')'");
    return type;
}

} // namespace host::language
