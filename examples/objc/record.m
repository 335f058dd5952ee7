#import <KorvoQRParser/KorvoQRParserObjC.h>

#include <stdio.h>

int main(int argc, char** argv) {
    @autoreleasepool {
        NSString* payload = argc > 1 ? [NSString stringWithUTF8String:argv[1]] : @"";
        QRCodeParserResponse* response = [QRCodeParser parseQRDataWithQrCodeString:payload];
        if (response.qrCodeData == nil) {
            QRCodeExplanation* explanation = [QRCodeExplainer explainQRDataWithQrCodeString:payload];
            NSString* cause = [explanation.causes objectAtIndex:0];
            fprintf(stderr, "Refused, codes %s\n%s\n", response.qrCodeError.description.UTF8String,
                    cause.UTF8String);
            return 1;
        }
        printf("%s", response.qrCodeData.description.UTF8String);
        return 0;
    }
}
