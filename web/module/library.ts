import bytes from "../../build/web/korvoqr.wasm";
import { decoded } from "./text.js";

/** An address in the memory of an instance. */
type Pointer = number;

/** The functions for C that the module uses, described in KorvoQRParserC.h. scripts/web exports those named here. */
interface Functions {
    readonly memory: WebAssembly.Memory;
    _initialize(): void;
    malloc(size: number): Pointer;
    free(block: Pointer): void;
    korvoqr_version(): Pointer;
    korvoqr_currency_alphabetic_code(numericCode: Pointer, size: number, alphabeticSize: Pointer): Pointer;
    korvoqr_error_code_name(code: number, size: Pointer): Pointer;
    korvoqr_parse(payload: Pointer, size: number): Pointer;
    korvoqr_response_free(response: Pointer): void;
    korvoqr_response_is_accepted(response: Pointer): number;
    korvoqr_response_code_count(response: Pointer): number;
    korvoqr_response_code(response: Pointer, index: number, size: Pointer): Pointer;
    korvoqr_response_error_code(response: Pointer, index: number): number;
    korvoqr_response_json(response: Pointer, size: Pointer): Pointer;
    korvoqr_explain(payload: Pointer, size: number): Pointer;
    korvoqr_explanation_free(explanation: Pointer): void;
    korvoqr_explanation_json(explanation: Pointer, size: Pointer): Pointer;
    korvoqr_explanation_byte_offset(explanation: Pointer, offset: number): number;
}

/** An instance with more memory than this is not kept: memory of WebAssembly never shrinks. */
const keptMemory = 64 << 20;
/** The library uses no files. Emscripten's standard library only could. */
const badFileDescriptor = 8;

const compiled = await WebAssembly.compile(bytes);

function instantiate(): Functions {
    const noFile = () => badFileDescriptor;
    const instance = new WebAssembly.Instance(compiled, {
        env: { emscripten_notify_memory_growth: () => {} },
        wasi_snapshot_preview1: { fd_close: noFile, fd_seek: noFile, fd_write: noFile, proc_exit: () => {} },
    });
    const functions = instance.exports as unknown as Functions;
    functions._initialize();
    return functions;
}

/** What a function makes is null if memory ran out. WebAssembly passes addresses as signed numbers. */
function made(pointer: Pointer): Pointer {
    if (pointer === 0) {
        throw new Error("The library returned null.");
    }
    return pointer >>> 0;
}

/** One instance of the library. If one of its operations throws, it must not be used again. */
class Library {
    private readonly functions = instantiate();
    /** The place where functions store the size of a text. */
    private readonly size = made(this.functions.malloc(4));

    get memorySize(): number {
        return this.functions.memory.buffer.byteLength;
    }

    get version(): string {
        const start = this.functions.korvoqr_version() >>> 0;
        const memory = new Uint8Array(this.functions.memory.buffer);
        return decoded(memory.subarray(start, memory.indexOf(0, start)));
    }

    alphabeticCurrencyCode(numericCode: Uint8Array): string | undefined {
        return this.withCopy(numericCode, (copy, size) => {
            const code = this.functions.korvoqr_currency_alphabetic_code(copy, size, this.size);
            return code === 0 ? undefined : this.text(() => code);
        });
    }

    /** The answer to a payload as a line of JSON. */
    parse(payload: Uint8Array): string {
        const { korvoqr_parse, korvoqr_response_free } = this.functions;
        const response = made(this.withCopy(payload, korvoqr_parse));
        const json = this.responseJSON(response);
        korvoqr_response_free(response);
        return json;
    }

    /** Passes the explanation of a payload to `use`, as a line of JSON, and a function that says where a character is. */
    explain<T>(payload: Uint8Array, use: (json: string, byteOffset: (offset: number) => number) => T): T {
        const { korvoqr_explain, korvoqr_explanation_free, korvoqr_explanation_json, korvoqr_explanation_byte_offset } =
            this.functions;
        const explanation = made(this.withCopy(payload, korvoqr_explain));
        const json = this.text((size) => korvoqr_explanation_json(explanation, size));
        const result = use(json, (offset) => korvoqr_explanation_byte_offset(explanation, offset) >>> 0);
        korvoqr_explanation_free(explanation);
        return result;
    }

    private responseJSON(response: Pointer): string {
        const { korvoqr_response_json, korvoqr_response_is_accepted } = this.functions;
        if (korvoqr_response_is_accepted(response)) {
            return `{"qrCodeData":${this.text((size) => korvoqr_response_json(response, size))}}`;
        }
        return JSON.stringify({ qrCodeError: this.errorOf(response) });
    }

    private errorOf(response: Pointer): { errorCodes: string[]; errorNames: string[] } {
        const {
            korvoqr_response_code_count,
            korvoqr_response_code,
            korvoqr_response_error_code,
            korvoqr_error_code_name,
        } = this.functions;
        const indexes = [...Array(korvoqr_response_code_count(response)).keys()];
        return {
            errorCodes: indexes.map((index) => this.text((size) => korvoqr_response_code(response, index, size))),
            errorNames: indexes.map((index) =>
                this.text((size) => korvoqr_error_code_name(korvoqr_response_error_code(response, index), size)),
            ),
        };
    }

    /** Passes bytes to a function, as a pointer and a size. */
    private withCopy<T>(bytes: Uint8Array, use: (copy: Pointer, size: number) => T): T {
        const copy = made(this.functions.malloc(bytes.length));
        new Uint8Array(this.functions.memory.buffer, copy).set(bytes);
        const result = use(copy, bytes.length);
        this.functions.free(copy);
        return result;
    }

    /** The text that a getter returns. */
    private text(get: (size: Pointer) => Pointer): string {
        const text = made(get(this.size));
        const { buffer } = this.functions.memory;
        return decoded(new Uint8Array(buffer, text, new DataView(buffer).getUint32(this.size, true)));
    }
}

let current: Library | undefined;

/**
 * Lets `work` use the library. It is compiled without exceptions: without memory it traps, or returns null. Then the
 * instance is left with everything in it, so that the next call begins with a new one. An answer can also be too long
 * for a string.
 */
export function withLibrary<T>(work: (library: Library) => T): T {
    const library = current ?? new Library();
    current = undefined;
    try {
        const result = work(library);
        current = library.memorySize > keptMemory ? undefined : library;
        return result;
    } catch (error) {
        throw new RangeError("There is not enough memory.", { cause: error });
    }
}
