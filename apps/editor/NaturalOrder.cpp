#include "apps/editor/NaturalOrder.h"

#include <QStringView>
#include <algorithm>

namespace corvane::editor {

namespace {

bool isDigit(char character) { return character >= '0' && character <= '9'; }
bool isDigit(QChar character) { return character >= u'0' && character <= u'9'; }

int sign(long long difference) { return difference < 0 ? -1 : static_cast<int>(difference > 0); }

int compareTexts(std::string_view one, std::string_view other) { return sign(one.compare(other)); }
int compareTexts(QStringView one, QStringView other) { return QString::localeAwareCompare(one, other); }

template <class View>
View withoutZeros(View digits) {
    const auto first = std::find_if(digits.begin(), digits.end(), [](auto digit) { return digit != '0'; });
    return View(digits.data() + (first - digits.begin()), static_cast<decltype(digits.size())>(digits.end() - first));
}

// Numbers of any length: the one with more digits is the larger one.
template <class View>
int compareNumbers(View one, View other) {
    one = withoutZeros(one);
    other = withoutZeros(other);
    const auto longer = static_cast<long long>(one.size()) - static_cast<long long>(other.size());
    return longer != 0 ? sign(longer) : sign(one.compare(other));
}

// Takes the digits, or whatever else there is up to the next digit, off the start of a text that is not empty.
template <class View>
View takeRun(View& text) {
    const bool isNumber = isDigit(text.front());
    const auto end = std::find_if(text.begin(), text.end(), [&](auto next) { return isDigit(next) != isNumber; });
    const View run(text.data(), static_cast<decltype(text.size())>(end - text.begin()));
    text = View(text.data() + run.size(), text.size() - run.size());
    return run;
}

template <class View>
int compareRuns(View one, View other) {
    while (!one.empty() && !other.empty()) {
        const View first = takeRun(one), second = takeRun(other);
        const bool areNumbers = isDigit(first.front()) && isDigit(second.front());
        const int difference = areNumbers ? compareNumbers(first, second) : compareTexts(first, second);
        if (difference != 0) return difference;
    }
    return static_cast<int>(!one.empty()) - static_cast<int>(!other.empty());
}

} // namespace

int compareNaturally(std::string_view one, std::string_view other) {
    const int difference = compareRuns(one, other);
    return difference != 0 ? difference : compareTexts(one, other);
}

int compareNaturally(const QString& one, const QString& other) {
    return compareRuns(QStringView(one), QStringView(other));
}

} // namespace corvane::editor
