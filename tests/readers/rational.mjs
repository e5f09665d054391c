// Exact fractions, for times in whole notes.
const commonDivisor = (a, b) => (b === 0 ? Math.abs(a) : commonDivisor(b, a % b));

export class Rational {
    constructor(numerator, denominator = 1) {
        const divisor = commonDivisor(numerator, denominator) * Math.sign(denominator);
        this.numerator = numerator / divisor;
        this.denominator = denominator / divisor;
        if (!Number.isSafeInteger(this.numerator) || !Number.isSafeInteger(this.denominator)) {
            throw new Error(`no exact fraction: ${numerator}/${denominator}`);
        }
    }

    // "3/8", "-1" and the like.
    static parse(text) {
        const [numerator, denominator] = text.split("/");
        return new Rational(Number(numerator), Number(denominator ?? 1));
    }

    plus(other) {
        return new Rational(
            this.numerator * other.denominator + other.numerator * this.denominator,
            this.denominator * other.denominator,
        );
    }

    minus(other) {
        return this.plus(new Rational(-other.numerator, other.denominator));
    }

    times(other) {
        return new Rational(this.numerator * other.numerator, this.denominator * other.denominator);
    }

    isLess(other) {
        return this.numerator * other.denominator < other.numerator * this.denominator;
    }

    toString() {
        return this.denominator === 1 ? `${this.numerator}` : `${this.numerator}/${this.denominator}`;
    }
}

export const zero = new Rational(0);

// A note value of 1/denominator with dots.
export function dotted(value, dots) {
    const parts = 2 ** dots;
    return value.times(new Rational(2 * parts - 1, parts));
}
