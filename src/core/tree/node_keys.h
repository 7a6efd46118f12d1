#pragma once

#include <string>

#include "core/model/key_label.h"

namespace tesselo {

// Image names: how the program tells the kinds of node apart everywhere.
inline const std::string image_home = "home";
inline const std::string image_properties = "properties";
inline const std::string image_page = "tv";
inline const std::string image_hidden_page = "hide tv";
inline const std::string image_device = "device";
inline const std::string image_hidden_device = "hide device";

inline bool is_device_image(const std::string& image) { return image == image_device || image == image_hidden_device; }
inline bool is_page_image(const std::string& image) { return image == image_page || image == image_hidden_page; }

// The document number in keys is the slot plus 1, in decimal, no separator.
std::string document_number(int slot);
// "HOME" + F.
std::string home_key(int slot);
// "HOME" + F + "\PAGE" + P.
std::string home_page_key(int slot, int page);
// "DEVICE" + D + F: the device number and the document number simply joined.
std::string device_key(int number, int slot);
// A page of a device: device key + "\PAGE" + P.
std::string device_page_key(const std::string& device, int page);
// "PROPERTIES" behind the owner's key.
std::string properties_key(const std::string& owner);

// The page number behind "PAGE" in a page key, or 0 when there is none.
int page_number_of_key(const std::string& key);
// The device number of a device key (or of a key below it): the digits
// behind "DEVICE" with the document number stripped by its length, so that
// the tail 110 is device 1 of document 10 and device 11 of document 0.
int device_number_of_key(const std::string& key, int slot);

// A device's name as the tree shows it, its text form by label_to_text.
std::string decode_device_name(const KeyLabel& name);

// The label "DEVICE" followed by the number, in glyphs.
KeyLabel default_device_name(int number);

// A number in three digits with leading zeros, as the page counters show it.
std::string three_digits(int value);

}  // namespace tesselo
