// Pictures of the application (GRX_IMAGE), for the functions that read, show and take them.
#pragma once

#include "grx_plus_images.h"
#include "pure/true_bmp.h"
#include "system/block.h"
#include "system/picture_reader.h"

namespace grx {

/// The sides, the form and the palette are those of a picture; its pixels may be null.
bool is_image_form(const GRX_IMAGE* image);

/// A whole picture, whose places its palette has.
bool is_image(const GRX_IMAGE* image);

/// A record that a picture may be put into.
bool is_empty_image(const GRX_IMAGE* image);

PictureForm form_of(const GRX_IMAGE& image);

/// Room for the pixels; empty when memory is short or an INT does not hold their number.
Block<uchar> picture_block(const PictureForm& form);

/// Reads a picture into an empty record; gives 1 or a code.
INT read_image(const PictureBytes& bytes, GRX_IMAGE& image);

} // namespace grx
