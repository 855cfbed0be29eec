#include "Icons/SvgBudget.hpp"

#include <QHash>
#include <QString>
#include <QXmlStreamReader>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace vireline::xdg::SvgBudget {
namespace {

constexpr std::size_t maximumElements = 50'000;
constexpr std::size_t maximumDepth = 100;
/// Limit on the characters of the drawing with every repetition expanded.
constexpr std::uint64_t maximumCost = 8U << 20U;
constexpr std::uint64_t elementCost = 16;

struct Element {
    std::optional<std::size_t> parent;
    std::uint64_t ownCost = 0;
    /// The ID of the element that this one repeats.
    QString repeated;
};

struct Drawing {
    /// Parents come before their children.
    std::vector<Element> elements;
    QHash<QString, std::size_t> named;
};

std::optional<QString> reference(const QXmlStreamAttributes& attributes) {
    for (const QXmlStreamAttribute& attribute : attributes) {
        if (attribute.name() == QLatin1String("href"))
            return attribute.value().trimmed().toString();
    }
    return std::nullopt;
}

std::uint64_t cost(const QXmlStreamAttributes& attributes) {
    std::uint64_t sum = elementCost;
    for (const QXmlStreamAttribute& attribute : attributes) {
        sum += static_cast<std::uint64_t>(attribute.value().size());
    }
    return sum;
}

std::optional<Drawing> parse(QByteArrayView svg) {
    QXmlStreamReader reader{QByteArray::fromRawData(svg.data(), svg.size())};
    Drawing drawing;
    std::vector<std::size_t> open;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::EndElement)
            open.pop_back();
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (drawing.elements.size() == maximumElements || open.size() == maximumDepth)
            return std::nullopt;
        const auto attributes = reader.attributes();
        Element element;
        element.ownCost = cost(attributes);
        if (!open.empty())
            element.parent = open.back();
        const auto target = reference(attributes);
        if (reader.name() == QLatin1String("image") &&
            !target.value_or(QString{}).startsWith(QLatin1String("data:")))
            return std::nullopt;
        if (reader.name() == QLatin1String("use"))
            element.repeated = target.value_or(QString{}).section(QLatin1Char('#'), 1);
        const auto id = attributes.value(QLatin1String("id"));
        open.push_back(drawing.elements.size());
        if (!id.isEmpty())
            drawing.named.insert(id.toString(), drawing.elements.size());
        drawing.elements.push_back(std::move(element));
    }
    return reader.hasError() ? std::nullopt : std::optional{std::move(drawing)};
}

/// Sums up the expanded cost of elements. An element's cost depends on its children and on the
/// elements that these repeat; a chain of more than `maximumDepth` repetitions counts as endless.
class Sum {
public:
    explicit Sum(const Drawing& drawing)
        : drawing_(drawing), children_(drawing.elements.size()), known_(drawing.elements.size()) {
        for (std::size_t i = 0; i < drawing.elements.size(); ++i) {
            if (const auto parent = drawing.elements[i].parent)
                children_[*parent].push_back(i);
        }
    }

    [[nodiscard]] std::uint64_t of(std::size_t index, std::size_t depth) {
        if (const auto& known = known_[index])
            return *known;
        // Doubled, because the recursion goes both down the tree and along the repetitions.
        if (depth > 2 * maximumDepth)
            return endless;
        const Element& element = drawing_.elements[index];
        std::uint64_t sum = element.ownCost;
        for (const std::size_t child : children_[index]) {
            sum = std::min(endless, sum + of(child, depth + 1));
        }
        const auto repeated = drawing_.named.constFind(element.repeated);
        if (repeated != drawing_.named.constEnd())
            sum = std::min(endless, sum + of(*repeated, depth + 1));
        known_[index] = sum;
        return sum;
    }

    static constexpr std::uint64_t endless = maximumCost + 1;

private:
    const Drawing& drawing_;
    std::vector<std::vector<std::size_t>> children_;
    std::vector<std::optional<std::uint64_t>> known_;
};

}

bool allows(QByteArrayView svg) {
    const auto drawing = parse(svg);
    if (!drawing || drawing->elements.empty())
        return false;
    Sum sum{*drawing};
    return sum.of(0, 0) <= maximumCost;
}

}
