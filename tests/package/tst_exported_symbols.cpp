#include "tests/helpers/checked_test.h"

#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>

namespace {

/// What the installed headers declare with one of the export macros, as qualified names.
struct Declared
{
    QSet<QString> classes;
    QSet<QString> enumerations; // marked or not
    QSet<QString> functions;
};

QString withoutComments(QString text)
{
    static const QRegularExpression comment(QStringLiteral("//[^\n]*|/\\*.*?\\*/"),
                                            QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression directive(QStringLiteral("^\\s*#([^\n]*\\\\\n)*[^\n]*"),
                                              QRegularExpression::MultilineOption);
    return text.remove(comment).remove(directive);
}

/// Reads the declarations of one header. A small walk over its braces is enough: it knows in which
/// namespaces and classes each use of the macro stands.
void readHeader(const QString& fileName, const QString& macro, Declared& declared)
{
    QFile file(fileName);
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(fileName));
    const QString text = withoutComments(QString::fromUtf8(file.readAll()));

    static const QRegularExpression scopeName(QStringLiteral(
        "\\b(namespace|class|struct)\\s+(?:ZEL_\\w+_EXPORT\\s+)?([\\w:]+)[^{;=()]*$"));
    const QRegularExpression exportedClass(
        QStringLiteral(
            "^\\s*(?:template\\s*<.*>\\s*)?(?:extern\\s+template\\s+)?(?:class|struct)\\s+") +
            macro + QStringLiteral("\\s+(\\w+)"),
        QRegularExpression::DotMatchesEverythingOption);
    // The type information of an enumeration is always public, as that of a fundamental type is.
    static const QRegularExpression enumeration(
        QStringLiteral("^\\s*enum\\s+(?:class\\s+)?(\\w+)"));
    const QRegularExpression exportedFunction(QStringLiteral("\\b") + macro +
                                              QStringLiteral("\\b[^()]*?(\\w+)\\s*\\("));

    QStringList scopes;
    QString statement;
    const auto finish = [&] {
        const QString scope = [&] {
            QStringList named = scopes;
            named.removeAll(QString());
            return named.isEmpty() ? QString() : named.join(QStringLiteral("::")) + "::";
        }();
        const auto asClass = exportedClass.match(statement);
        const auto asEnumeration = enumeration.match(statement);
        const auto asFunction = exportedFunction.match(statement);
        if (asEnumeration.hasMatch()) {
            declared.enumerations.insert(scope + asEnumeration.captured(1));
        } else if (asClass.hasMatch()) {
            declared.classes.insert(scope + asClass.captured(1));
        } else if (asFunction.hasMatch()) {
            declared.functions.insert(scope + asFunction.captured(1));
        }
    };
    for (const QChar c : text) {
        if (c == '{') {
            finish();
            scopes.append(scopeName.match(statement).captured(2));
            statement.clear();
        } else if (c == '}') {
            QVERIFY2(!scopes.isEmpty(), qPrintable(fileName));
            scopes.removeLast();
            statement.clear();
        } else if (c == ';') {
            finish();
            statement.clear();
        } else {
            statement.append(c);
        }
    }
}

Declared readHeaders(const QString& macro)
{
    Declared declared;
    QDirIterator headers(QStringLiteral(ZEL_PREFIX "/include/zel"), {QStringLiteral("*.h")},
                         QDir::Files, QDirIterator::Subdirectories);
    while (headers.hasNext()) {
        readHeader(headers.next(), macro, declared);
    }
    return declared;
}

/// The qualified name that a demangled symbol belongs to, without arguments, template arguments and
/// return type.
QString qualifiedName(QString symbol)
{
    static const QRegularExpression prefix(
        QStringLiteral("^(vtable|VTT|typeinfo name|typeinfo|guard variable|construction vtable|"
                       "non-virtual thunk|virtual thunk) (for|to) "));
    static const QRegularExpression templateArguments(QStringLiteral("<[^<>]*>"));
    static const QRegularExpression comparison(QStringLiteral("operator(<<|>>|->|<|>|\\(\\))=?"));
    static const QRegularExpression abiTag(QStringLiteral("\\[abi:\\w+\\]"));
    symbol.remove(prefix);
    symbol.remove(abiTag);
    symbol.replace(comparison, QStringLiteral("operator"));
    symbol.replace(QLatin1String("(anonymous namespace)"), QLatin1String("anonymous"));
    while (symbol.contains(templateArguments)) {
        symbol.remove(templateArguments);
    }
    symbol = symbol.section('(', 0, 0).trimmed();
    symbol.replace(QLatin1String("operator "), QLatin1String("operator_"));
    return symbol.section(' ', -1);
}

/// The demangled names of the symbols of its own that a library offers to others.
QStringList exportedSymbols(const QString& library)
{
    QProcess nm;
    nm.start(QStringLiteral(ZEL_NM), {"-D", "-C", "--defined-only", "-f", "posix", library});
    if (!nm.waitForFinished() || nm.exitCode() != 0) {
        return {};
    }
    // "name type value size"; the name holds blanks. Weak symbols (V, W, u) that are not ours are
    // those of the templates and inline functions of others, exported wherever they are used.
    static const QRegularExpression line(
        QStringLiteral("^(.*) ([A-Za-z]) [0-9a-f]+( [0-9a-f]+)?$"));
    static const QRegularExpression ours(QStringLiteral("^(zel|ZEL)"));
    static const QRegularExpression linkers(QStringLiteral("^_(_bss_start|edata|end|init|fini)$"));
    QStringList names;
    for (const QString& row : QString::fromUtf8(nm.readAllStandardOutput()).split('\n')) {
        const auto match = line.match(row);
        const QString name = match.captured(1);
        const bool weak = QStringLiteral("VWu").contains(match.captured(2));
        if (match.hasMatch() && !linkers.match(name).hasMatch() &&
            (!weak || ours.match(qualifiedName(name)).hasMatch())) {
            names.append(name);
        }
    }
    return names;
}

} // namespace

/// Holds what the two libraries export against what the installed headers declare.
class ExportedSymbolsTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void everythingExportedIsDeclared_data();
    void everythingExportedIsDeclared();
    void everythingDeclaredIsExported_data()
    {
        everythingExportedIsDeclared_data();
    }
    void everythingDeclaredIsExported();
    void internalsStayInside_data();
    void internalsStayInside();
    void namesAreReadFromSymbols_data();
    void namesAreReadFromSymbols();
};

void ExportedSymbolsTest::everythingExportedIsDeclared_data()
{
    QTest::addColumn<QString>("library");
    QTest::addColumn<QString>("macro");
    QTest::newRow("units") << ZEL_UNITS_LIBRARY << "ZEL_UNITS_EXPORT";
    QTest::newRow("qt") << ZEL_QT_LIBRARY << "ZEL_QT_EXPORT";
}

void ExportedSymbolsTest::everythingExportedIsDeclared()
{
    QFETCH(QString, library);
    QFETCH(QString, macro);
    const Declared declared = readHeaders(macro);
    // Type information is emitted wherever it is used, so a library may repeat that of another.
    const Declared declaredAnywhere = readHeaders(QStringLiteral("ZEL_\\w+_EXPORT"));
    const QStringList symbols = exportedSymbols(library);
    QVERIFY(symbols.size() > 10);
    QStringList undeclared;
    for (const QString& symbol : symbols) {
        const QString name = qualifiedName(symbol);
        if (declared.functions.contains(name)) {
            continue;
        }
        const bool isTypeinfo = symbol.startsWith("typeinfo");
        if (isTypeinfo && declaredAnywhere.enumerations.contains(name)) {
            continue;
        }
        const QSet<QString>& classes = isTypeinfo ? declaredAnywhere.classes : declared.classes;
        bool found = false;
        for (QString scope = name; !found && !scope.isEmpty(); scope = scope.section("::", 0, -2)) {
            found = classes.contains(scope);
        }
        if (!found) {
            undeclared.append(symbol);
        }
    }
    QVERIFY2(undeclared.isEmpty(), qPrintable(undeclared.join('\n')));
}

void ExportedSymbolsTest::everythingDeclaredIsExported()
{
    QFETCH(QString, library);
    QFETCH(QString, macro);
    const Declared declared = readHeaders(macro);
    QVERIFY(!declared.classes.isEmpty());
    QVERIFY(!declared.functions.isEmpty());
    QSet<QString> exported;
    for (const QString& symbol : exportedSymbols(library)) {
        for (QString name = qualifiedName(symbol); !name.isEmpty();
             name = name.section("::", 0, -2)) {
            exported.insert(name);
        }
    }
    QStringList missing = (declared.classes + declared.functions - exported).values();
    missing.sort();
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join('\n')));
}

void ExportedSymbolsTest::internalsStayInside_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("scene of the editor view") << "zel::qt::graphics::GraphicsScene";
    QTest::newRow("line edit with a reset button") << "zel::qt::makeLineEditWithOptionalValue";
    QTest::newRow("anonymous namespaces") << "anonymous";
}

void ExportedSymbolsTest::internalsStayInside()
{
    QFETCH(QString, name);
    for (const QString& library :
         {QStringLiteral(ZEL_UNITS_LIBRARY), QStringLiteral(ZEL_QT_LIBRARY)}) {
        for (const QString& symbol : exportedSymbols(library)) {
            const QString exported = qualifiedName(symbol);
            QVERIFY2(!exported.contains(name), qPrintable(symbol));
        }
    }
}

void ExportedSymbolsTest::namesAreReadFromSymbols_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("zel::Exception::what() const") << "zel::Exception::what";
    QTest::newRow("vtable for zel::Exception") << "zel::Exception";
    QTest::newRow("non-virtual thunk to zel::qt::A::~A()") << "zel::qt::A::~A";
    QTest::newRow("void zel::f<std::pair<int, A> >(int)") << "zel::f";
    QTest::newRow("zel::F<std::pair<int, A>, B>::add(B const&)") << "zel::F::add";
    QTest::newRow("zel::operator<(zel::A const&, zel::A const&)") << "zel::operator";
    QTest::newRow("zel::A::operator()(int) const") << "zel::A::operator";
    QTest::newRow("zel::A::operator bool() const") << "zel::A::operator_bool";
    QTest::newRow("zel::f(int)::table") << "zel::f";
    QTest::newRow("zel::f[abi:cxx11](int)") << "zel::f";
}

void ExportedSymbolsTest::namesAreReadFromSymbols()
{
    QFETCH(QString, name);
    QCOMPARE(qualifiedName(QString::fromUtf8(QTest::currentDataTag())), name);
}

QTEST_GUILESS_MAIN(ExportedSymbolsTest)
#include "tst_exported_symbols.moc"
