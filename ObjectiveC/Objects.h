#ifndef KORVOQRPARSER_OBJECTIVEC_OBJECTS_H
#define KORVOQRPARSER_OBJECTIVEC_OBJECTS_H

#include <KorvoQRParser/Explanation/QRCodeExplanation.h>
#include <KorvoQRParser/Model/QRCodeData.h>
#import <KorvoQRParser/ObjectiveC/QRCodeData.h>
#import <KorvoQRParser/ObjectiveC/QRCodeError.h>
#import <KorvoQRParser/ObjectiveC/QRCodeExplanation.h>
#include <KorvoQRParser/Parser/QRCodeError.h>

#include <memory>

/// Makes the object for the record or the error of a parse, nil for null, or for an explanation. The caller
/// owns it. Functions and not methods, so that the classes have no selectors beyond the published ones.
namespace korvo::objectivec {

::QRCodeData* newQRCodeData(std::shared_ptr<QRCodeData> record) NS_RETURNS_RETAINED;
::QRCodeError* newQRCodeError(std::shared_ptr<QRCodeError> error) NS_RETURNS_RETAINED;
::QRCodeExplanation* newObject(const QRCodeExplanation& value) NS_RETURNS_RETAINED;

}  // namespace korvo::objectivec

#endif
