/**
 * The merchant's record. A text that the payload does not have is null. A flag says whether the consumer must supply a
 * value that the merchant left open. Numbers in parentheses are the tag in the two-digit format and, in quotes, in the
 * one-character format.
 */
export interface QRCodeData {
    /** Merchant identifier (02; "0"). */
    korvoMerchantID: string;
    /** Account number, from the identifier. */
    korvoMerchantPAN: string;
    /** Merchant name (59; "1"). */
    merchantName: string;
    /** Category code (52; "2"). */
    merchantCategoryCode: string;
    /** Merchant city (60; "3"). */
    cityName: string;
    /** Country of ISO 3166-1 (58; "4"). */
    countryCode: string;
    /** Currency, a number of ISO 4217 (53; "5"). */
    currencyCode: string;
    /** Amount to pay (54; "6"). */
    transactionAmount: string | null;
    /** Primary identifier ("7"). */
    primaryID: string | null;
    /** Secondary identifier ("8"). */
    secondaryID: string | null;
    /** Tip or fee indicator (55; "9"). */
    tipAndFeeIndicator: string | null;
    /** Fixed convenience fee (56; "A"). */
    convenienceFeeAmount: string | null;
    /** Fee as a percentage (57; "B"). */
    convenienceFeePercentage: string | null;
    /** Payload format indicator (00). */
    payloadFormatIndicator: string | null;
    /** Point of initiation method (01). */
    pointOfInitiation: string | null;
    /** Postal code (61). */
    postalCode: string | null;
    /** Account of the MasterCard network (04). */
    masterCardPAN1: string | null;
    /** Account of the MasterCard network (05). */
    masterCardPAN2: string | null;
    /** Identifier of the NPCI network (06). */
    npciid1: string | null;
    /** Identifier of the NPCI network (07). */
    npciid2: string | null;
    /** Checksum (63). */
    crc: string | null;
    /** Root tag 03, as received. */
    tag03: string | null;
    /** Root tag 08, as received. */
    tag08: string | null;
    /** Root tag 09, as received. */
    tag09: string | null;
    /** Root tag 10, as received. */
    tag10: string | null;
    /** Root tag 11, as received. */
    tag11: string | null;
    /** Root tag 12, as received. */
    tag12: string | null;
    /** Root tag 13, as received. */
    tag13: string | null;
    /** Root tag 14, as received. */
    tag14: string | null;
    /** Root tag 15, as received. */
    tag15: string | null;
    /** Additional data field, whole (62). */
    additionalDataField: string | null;
    /** Bill number (62/01). */
    billID: string | null;
    /** Mobile number (62/02). */
    mobileNumber: string | null;
    /** Store identifier (62/03). */
    storeID: string | null;
    /** Loyalty number (62/04). */
    loyaltyNumber: string | null;
    /** Reference identifier (62/05). */
    referenceID: string | null;
    /** Consumer identifier (62/06). */
    consumerID: string | null;
    /** Terminal identifier (62/07). */
    terminalID: string | null;
    /** Purpose (62/08). */
    purpose: string | null;
    /** Requested consumer data (62/09). */
    additionalConsumerDataRequest: string | null;
    /** Data of the MasterCard network (62/11). */
    addDataMasterCard1: string | null;
    /** Data of the MasterCard network (62/12). */
    addDataMasterCard2: string | null;
    /** Data of the NPCI network (62/13). */
    addDataNpci1: string | null;
    /** Data of the NPCI network (62/14). */
    addDataNpci2: string | null;
    /** 62/10, as received. */
    tagSixtyTwo10: string | null;
    /** 62/15, as received. */
    tagSixtyTwo15: string | null;
    /** 62/16, as received. */
    tagSixtyTwo16: string | null;
    /** 62/17, as received. */
    tagSixtyTwo17: string | null;
    /** 62/18, as received. */
    tagSixtyTwo18: string | null;
    /** 62/19, as received. */
    tagSixtyTwo19: string | null;
    /** 62/20, as received. */
    tagSixtyTwo20: string | null;
    /** 62/21, as received. */
    tagSixtyTwo21: string | null;
    /** 62/22, as received. */
    tagSixtyTwo22: string | null;
    /** Flag, for billID. */
    isBillIDMandatory: boolean;
    /** Flag, for mobileNumber. */
    isMobileNumberMandatory: boolean;
    /** Flag, for storeID. */
    isStoreIDMandatory: boolean;
    /** Flag, for loyaltyNumber. */
    isLoyaltyNumberMandatory: boolean;
    /** Flag, for referenceID. */
    isReferenceIDMandatory: boolean;
    /** Flag, for consumerID. */
    isConsumerIDMandatory: boolean;
    /** Flag, for terminalID. */
    isTerminalIDMandatory: boolean;
    /** Flag, for purpose. */
    isPurposeMandatory: boolean;
    /** Flag, never true after a parse. */
    isAdditonalConsumerDataRequestMandatory: boolean;
    /** Flag, for addDataMasterCard1. */
    isAddDataMasterCard1Mandatory: boolean;
    /** Flag, for addDataMasterCard2. */
    isAddDataMasterCard2Mandatory: boolean;
    /** Flag, for addDataNpci1. */
    isAddDataNpci1Mandatory: boolean;
    /** Flag, for addDataNpci2. */
    isAddDataNpci2Mandatory: boolean;
    /** Flag, for primaryID. */
    isPrimaryIDMandatory: boolean;
    /** Flag, for secondaryID. */
    isSecondaryIDMandatory: boolean;
    /** Length announced for primaryID. */
    primaryIDLength: string | null;
    /** Length announced for secondaryID. */
    secondaryIDLength: string | null;
}
