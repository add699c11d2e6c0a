#include "shell/desktop/file_filter.h"

#include "shell/desktop/qt_text.h"

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

// "*.*" leaves out names without a point here.
QString Patterns(const QString& given)
{
    QStringList patterns;
    for (const QString& pattern : given.split(u';', Qt::SkipEmptyParts))
        patterns << (pattern.trimmed() == u"*.*" ? u"*"_s : pattern.trimmed());
    return patterns.isEmpty() ? u"*"_s : patterns.join(u' ');
}

} // namespace

QStringList NameFilters(std::string_view filter)
{
    const QStringList parts = NameToQt(filter).split(u'|');
    QStringList rows;
    for (qsizetype name = 0; name < parts.size(); name += 2) {
        if (!parts.at(name).isEmpty())
            rows << parts.at(name).trimmed() + u" ("_s + Patterns(parts.value(name + 1)) + u")"_s;
    }
    return rows;
}

} // namespace veldrane
