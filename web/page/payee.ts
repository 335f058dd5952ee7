import { type Child, make, strange } from "./dom.js";
import { alphabeticCurrencyCode, type QRCodeData } from "./library.js";

function row(name: string, kind: string, ...value: Child[]): HTMLElement {
    return make("div", { class: kind }, make("dt", {}, name), make("dd", {}, ...value));
}

function amountOf({ currencyCode }: QRCodeData, amount: string | null): Child[] {
    const currency = strange(alphabeticCurrencyCode(currencyCode) ?? currencyCode);
    return amount === null ? ["any amount, in ", currency] : [strange(amount), " ", currency];
}

/** Who is paid, and how much, in large type: what a person compares before anybody pays. */
export function payeeOf(record: QRCodeData): HTMLElement {
    const list = make(
        "dl",
        { class: "payee" },
        row("Merchant", "merchant", strange(record.merchantName)),
        row("City", "city", strange(record.cityName)),
        row("Amount", "amount", ...amountOf(record, record.transactionAmount)),
        row("Identifier", "identifier", strange(record.korvoMerchantID)),
    );
    if (record.convenienceFeeAmount !== null) {
        list.append(row("Fee", "fee", ...amountOf(record, record.convenienceFeeAmount)));
    }
    if (record.convenienceFeePercentage !== null) {
        list.append(row("Fee", "fee", strange(record.convenienceFeePercentage), " %"));
    }
    return list;
}
