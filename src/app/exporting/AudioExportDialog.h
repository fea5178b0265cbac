#pragma once

#include "audio/render/RenderPlan.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QSpinBox;
class Settings;

// What a person may choose of an export of sound; it begins with what was chosen last. [ui]
class AudioExportDialog : public QDialog
{
    Q_OBJECT

public:
    enum class Loop { None, Song };
    enum class Offsets { None, Parts };

    AudioExportDialog(Settings &settings, Loop loop, Offsets offsets, QWidget *parent = nullptr);

    SoundCoding coding() const;
    double quality() const; // 0..1
    RenderFiles files() const;
    bool isLoopOnly() const;
    bool isNormalised() const;
    bool hasOffsets() const; // whether parts sound with their start offsets

private:
    void addFormats(int chosen);
    void showQuality();
    void remember();

    Settings &settings_;
    QComboBox *format_;
    QLabel *qualityLabel_;
    QSpinBox *quality_;
    QComboBox *files_;
    QComboBox *range_;
    QCheckBox *normalise_;
    QCheckBox *offsets_;
};
