#pragma once

#include "viewer/PictureWidget.h"

// The ways of a picture out of the window: as it is looked at, black on white as on paper.
namespace tallybrook {

/// Puts a picture on the clipboard.
void copyPicture(PictureWidget& picture);

/// Puts what a picture shows on the clipboard, as a table that spreadsheets take.
void copyTable(PictureWidget& picture);

/// Asks for a file, and writes the picture into it, as SVG or PNG by the file's name. Tells failures in a
/// box.
void savePicture(PictureWidget& picture);

/// Writes a picture as SVG, or as PNG with two points for each of the display. FileFailure where the file
/// cannot be written; what it held before stays then.
void writeSvg(const PictureWidget& picture, const QString& file);
void writePng(const PictureWidget& picture, const QString& file);

}  // namespace tallybrook
