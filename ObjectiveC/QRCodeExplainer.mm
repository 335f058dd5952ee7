#include "Objects.h"
#include "Ownership.h"
#include "Text.h"
#include <KorvoQRParser/Explanation/QRCodeExplainer.h>
#import <KorvoQRParser/ObjectiveC/QRCodeExplainer.h>

#include <string>

@implementation QRCodeExplainer

+ (QRCodeExplanation*)explainQRDataWithQrCodeString:(NSString*)qrCodeString {
    const std::string payload = korvo::objectivec::textFromString(qrCodeString);
    return KORVO_AUTORELEASE(korvo::objectivec::newObject(korvo::QRCodeExplainer::explainQRData(payload)));
}

+ (QRCodeExplanation*)describeQRDataWithQrCodeString:(NSString*)qrCodeString {
    const std::string payload = korvo::objectivec::textFromString(qrCodeString);
    return KORVO_AUTORELEASE(korvo::objectivec::newObject(korvo::QRCodeExplainer::describeQRData(payload)));
}

@end
