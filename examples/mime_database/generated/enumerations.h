#ifndef EXAMPLES_MIME_DATABASE_GENERATED_ENUMERATIONS_H_
#define EXAMPLES_MIME_DATABASE_GENERATED_ENUMERATIONS_H_

#include "tovikxml/tovikxml.h"

/// The enumerations of the schema, each with its two functions.
namespace MimeDatabase {

enum IconName {
  IconName_application_x_executable = 0,
  IconName_audio_x_generic = 1,
  IconName_folder = 2,
  IconName_font_x_generic = 3,
  IconName_image_x_generic = 4,
  IconName_package_x_generic = 5,
  IconName_text_html = 6,
  IconName_text_x_generic = 7,
  IconName_text_x_generic_template = 8,
  IconName_text_x_script = 9,
  IconName_video_x_generic = 10,
  IconName_x_office_address_book = 11,
  IconName_x_office_calendar = 12,
  IconName_x_office_document = 13,
  IconName_x_office_presentation = 14,
  IconName_x_office_spreadsheet = 15
};
const TovikXmlLib16::wchar* IconNameToText(int value);
int IconNameFromText(const TovikXmlLib16::wchar* text);

enum MatchType {
  MatchType_string = 0,
  MatchType_big16 = 1,
  MatchType_big32 = 2,
  MatchType_little16 = 3,
  MatchType_little32 = 4,
  MatchType_host16 = 5,
  MatchType_host32 = 6,
  MatchType_byte = 7
};
const TovikXmlLib16::wchar* MatchTypeToText(int value);
int MatchTypeFromText(const TovikXmlLib16::wchar* text);

enum TreematchType { TreematchType_file = 0, TreematchType_directory = 1, TreematchType_link = 2 };
const TovikXmlLib16::wchar* TreematchTypeToText(int value);
int TreematchTypeFromText(const TovikXmlLib16::wchar* text);

}  // namespace MimeDatabase

#endif  // EXAMPLES_MIME_DATABASE_GENERATED_ENUMERATIONS_H_
