#include "shapes/letters.h"

namespace zu::picture {

namespace {

/// The character of three decimal digits at `at`; 0 when there are none.
char16_t numberedCharacter(const QString& text, qsizetype at) {
    bool isNumber = false;
    const QString digits = text.mid(at, 3);
    const uint code = digits.size() == 3 ? digits.toUInt(&isNumber) : 0;
    return isNumber && code >= 0x20 && code < 0x100 ? static_cast<char16_t>(code) : u'\0';
}

class CodeResolver {
public:
    explicit CodeResolver(const QString& text) : text_(text) {}

    CodedText run() {
        while (at_ < text_.size())
            step();
        close(result_.underlined);
        close(result_.overlined);
        return std::move(result_);
    }

private:
    void step() {
        if (!(text_[at_] == u'%' && at_ + 2 < text_.size() && text_[at_ + 1] == u'%')) {
            result_.text += text_[at_++];
            return;
        }
        at_ += 2;
        if (const char16_t c = numberedCharacter(text_, at_)) {
            result_.text += QChar(c);
            at_ += 3;
            return;
        }
        readCode(text_[at_++]);
    }

    void readCode(QChar code) {
        switch (code.toLower().unicode()) {
        case u'd':
            result_.text += QChar(0xB0);
            break;
        case u'p':
            result_.text += QChar(0xB1);
            break;
        case u'c':
            result_.text += QChar(0x2300);
            break;
        case u'%':
            result_.text += u'%';
            break;
        case u'u':
            result_.underlined.push_back(result_.text.size());
            break;
        case u'o':
            result_.overlined.push_back(result_.text.size());
            break;
        case u'k':
            break;
        default:
            (result_.text += u"%%") += code;
        }
    }

    void close(std::vector<qsizetype>& marks) const {
        if (marks.size() % 2 != 0)
            marks.push_back(result_.text.size());
    }

    const QString& text_;
    qsizetype at_ = 0;
    CodedText result_;
};

} // namespace

TextRun runOf(const QString& text, const TextStyle& style) {
    TextRun run;
    run.text = text;
    run.family = style.family;
    run.bold = style.bold;
    run.italic = style.italic;
    run.onGrid = style.onGrid;
    run.width = advanceOf(text, run.family, run.bold, run.italic, run.onGrid);
    return run;
}

CodedText resolveCodes(const QString& text) {
    return CodeResolver(text).run();
}

} // namespace zu::picture
