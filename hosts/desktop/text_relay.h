// Carries what a person does in a text item to the field that it stands for.
#pragma once

#include <QObject>
#include <QQuickItem>
#include <functional>
#include <memory>

namespace gexlo {

class UITextInput;

struct TextActions {
    std::function<void(UITextInput&)> focus;
    std::function<void(UITextInput&, const QString&)> edit;
    std::function<void(UITextInput&)> returnKey;
};

/// Lives and ends with the item.
class TextRelay final : public QObject {
    Q_OBJECT

public:
    TextRelay(QQuickItem& item, UITextInput& input, const TextActions& actions);

    /// The field, or null once it has gone.
    std::shared_ptr<UITextInput> input() const { return input_.lock(); }
    /// Takes keys and clicks only where a finger would reach the field.
    void followReach();

private Q_SLOTS:
    void edited(const QString& text);
    void returned();
    void focused();

private:
    QQuickItem& item_;
    std::weak_ptr<UITextInput> input_;
    const TextActions& actions_;
};

}  // namespace gexlo
