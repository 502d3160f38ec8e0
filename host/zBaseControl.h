/// Base controls of the host: styled widgets, screen scaling, skins.
#pragma once

#include <QComboBox>
#include <QFont>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScopedPointer>
#include <QVariant>
#include <QWidget>

#include "kvcore.h"

class QHBoxLayout;
class QVBoxLayout;

/// Screen scaling. Every pixel size of the module passes through it.
class NEWPRO_HOST_API InterfaceAdaptation {
  public:
    static InterfaceAdaptation* getInstance();
    /// @param designPixels a size of the design at 100 %. @return the size on this screen, pixels.
    int getResolutionRatioH(double designPixels) const;
    /// Tells the host the nominal size (design pixels) of a dialog that opens.
    void openMaxDialogMode(int width, int height);
    void closeMaxDialogMode();
};

/// The current skin.
class NEWPRO_HOST_API SkinManager : public QObject {
    Q_OBJECT
  public:
    static SkinManager* instance();
  Q_SIGNALS:
    void signalSkinChanged();

  private:
    SkinManager();
};

class NEWPRO_HOST_API TBaseTool {
  public:
    /// @param size pixel size, already scaled. @param weight QFont::Normal or QFont::Bold.
    static QFont GetDefFont(int size, int weight);
};

/// Colours of a styled widget; they follow the skin until set.
class NEWPRO_HOST_API ComStyleOption {
  public:
    ComStyleOption();
    virtual ~ComStyleOption();
    ComStyleOption(const ComStyleOption&) = delete;
    ComStyleOption& operator=(const ComStyleOption&) = delete;

    /// @return background of the widget at rest in the current skin.
    QColor normalBackColor() const;
    void setNormalBackColor(const QColor& color);

  protected:
    struct Style;
    QScopedPointer<Style> look;
};

class NEWPRO_HOST_API ButtonStyleOption : public ComStyleOption {
  public:
    ButtonStyleOption();
    ~ButtonStyleOption() override;
    /// @param alignment Qt::Alignment flags of the text.
    void setTextAlignment(int alignment);
    /// @param alignment Qt::Alignment flags of the icon.
    void setIconAlignment(int alignment);
    /// Whether a checked button is filled with the skin's accent.
    void setCheckedBackColorEnabled(bool enabled);
};

/// Styled container. Widget type 9: card in a list; 10: transparent row; 0: plain.
class NEWPRO_HOST_API zBaseWidget : public QWidget, public ComStyleOption {
    Q_OBJECT
  public:
    explicit zBaseWidget(QWidget* parent = nullptr, int widgetType = 0);
    ~zBaseWidget() override;
    /// @param imagePath picture that fills the widget's background; empty for none.
    void setBackgroundIcon(const QString& imagePath);
    QString backgroundIcon() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Container with a horizontal layout.
class NEWPRO_HOST_API zBasePanelH : public zBaseWidget {
    Q_OBJECT
  public:
    explicit zBasePanelH(QWidget* parent = nullptr);
    QHBoxLayout* panelLayout() const;
};

/// Container with a vertical layout.
class NEWPRO_HOST_API zBasePanelV : public zBaseWidget {
    Q_OBJECT
  public:
    explicit zBasePanelV(QWidget* parent = nullptr);
    QVBoxLayout* panelLayout() const;
};

/// Styled label. Control type 2: text of a card; 13: divider line.
class NEWPRO_HOST_API zBaseLabel : public QLabel, public ComStyleOption {
    Q_OBJECT
  public:
    explicit zBaseLabel(QWidget* parent = nullptr);
    explicit zBaseLabel(const QString& text, QWidget* parent = nullptr);
    ~zBaseLabel() override;
    void setControlType(int type);
    using QLabel::setPixmap;
    /// Shows a picture, sharp at every screen scale. @param size in pixels, already scaled.
    void setPixmap(const QString& imagePath, const QSize& size);
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    void showPicture();
    void followFont();
};

/// Styled button. Control type 88: "新建" of a row; 18: part of a split button; 1: default
/// action; 0: plain.
class NEWPRO_HOST_API zBaseButton : public QPushButton, public ButtonStyleOption {
    Q_OBJECT
  public:
    explicit zBaseButton(QWidget* parent = nullptr);
    explicit zBaseButton(const QString& text, QWidget* parent = nullptr);
    ~zBaseButton() override;
    void SetText(const QString& text);
    /// @param normal picture at rest; the other states fall back to it.
    void setIcon(const QString& normal, const QString& hover = QString(),
                 const QString& pressed = QString(), const QString& disabled = QString());
    void setControlType(int type);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};

class NEWPRO_HOST_API zBaseMenu : public QMenu {
    Q_OBJECT
  public:
    explicit zBaseMenu(QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
};

class NEWPRO_HOST_API zBaseCombox : public QComboBox, public ComStyleOption {
    Q_OBJECT
  public:
    explicit zBaseCombox(QWidget* parent = nullptr);
    ~zBaseCombox() override;
    void addItem(const QString& text, const QVariant& data = QVariant());
    /// @param iconPath picture of the entry. @param state whether the entry is marked as usable.
    void addItemState(const QString& iconPath, bool state, const QString& text,
                      const QVariant& data);
    void SetComboxShowIcon(bool show);
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Field that opens a pop-up with a widget of the caller's.
class NEWPRO_HOST_API zBaseComboxPopup : public zBaseWidget {
    Q_OBJECT
  public:
    explicit zBaseComboxPopup(QWidget* parent = nullptr);
    ~zBaseComboxPopup() override;
    void setDisplayText(const QString& text);
    QString displayText() const;
    /// Takes the widget that drops down. It becomes the pop-up's child.
    void setPopupWidget(QWidget* widget);
    void showDropDownPopup();
    void hideDropDownPopup();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    struct Popup;
    QScopedPointer<Popup> popup;
};
