#include "plain_text.h"

namespace zu::preview {

namespace {

/// Takes the format codes of multi-line text out.
class FormatReader {
public:
    explicit FormatReader(const QString& text) : text_(text) {}

    QStringList run() {
        while (at_ < text_.size())
            step();
        lines_ += line_;
        return lines_;
    }

private:
    void step() {
        const QChar c = text_[at_++];
        if (c == u'\\' && at_ < text_.size())
            readCode(text_[at_++]);
        else if (c == u'\n')
            endLine();
        else if (c != u'{' && c != u'}' && c != u'\r')
            line_ += c;
    }

    void readCode(QChar code) {
        switch (code.unicode()) {
        case u'P':
        case u'X':
            endLine();
            break;
        case u'~':
            line_ += QChar::Nbsp;
            break;
        case u'\\':
        case u'{':
        case u'}':
            line_ += code;
            break;
        case u'S':
            line_ += QString(argument()).replace(u'^', u'/').replace(u'#', u'/');
            break;
        case u'A':
        case u'C':
        case u'c':
        case u'F':
        case u'f':
        case u'H':
        case u'p':
        case u'Q':
        case u'T':
        case u'W':
            argument();
            break;
        case u'L':
        case u'l':
        case u'O':
        case u'o':
        case u'K':
        case u'k':
        case u'N':
            break;
        default:
            line_ += u'\\';
            line_ += code;
        }
    }

    /// Up to the semicolon that ends it.
    QString argument() {
        const qsizetype end = text_.indexOf(u';', at_);
        QString found = text_.mid(at_, end < 0 ? -1 : end - at_);
        at_ = end < 0 ? text_.size() : end + 1;
        return found;
    }

    void endLine() {
        lines_ += line_;
        line_.clear();
    }

    const QString& text_;
    qsizetype at_ = 0;
    QString line_;
    QStringList lines_;
};

QString withSigns(const QString& text) {
    QString result;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const bool sign = text.mid(at, 2) == u"%%" && at + 2 < text.size();
        if (!sign) {
            result += text[at];
            continue;
        }
        at += 2;
        switch (text[at].toLower().unicode()) {
        case u'd':
            result += QChar(0xB0);
            break;
        case u'p':
            result += QChar(0xB1);
            break;
        case u'c':
            result += QChar(0x2300);
            break;
        case u'%':
            result += u'%';
            break;
        case u'u':
        case u'o':
        case u'k':
            break;
        default:
            result += u"%%";
            result += text[at];
        }
    }
    return result;
}

QString fromWide(std::wstring_view text) {
    return QString::fromWCharArray(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

QString plainText(std::wstring_view text) {
    return withSigns(fromWide(text));
}

QStringList plainLines(std::wstring_view text) {
    const QString all = plainText(text);
    return FormatReader(all).run();
}

} // namespace zu::preview
