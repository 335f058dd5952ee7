export interface Spot {
    readonly x: number;
    readonly y: number;
}

/** The corners of a code, around it. */
export type Corners = readonly Spot[];

export interface Box {
    readonly x: number;
    readonly y: number;
    readonly width: number;
    readonly height: number;
}

/** The upright box around corners. */
export function boxAround(corners: Corners): Box {
    const xs = corners.map(({ x }) => x);
    const ys = corners.map(({ y }) => y);
    const x = Math.round(Math.min(...xs));
    const y = Math.round(Math.min(...ys));
    return { x, y, width: Math.round(Math.max(...xs)) - x, height: Math.round(Math.max(...ys)) - y };
}

export function centreOf(corners: Corners): Spot {
    const sum = corners.reduce((left, right) => ({ x: left.x + right.x, y: left.y + right.y }), { x: 0, y: 0 });
    return { x: sum.x / corners.length, y: sum.y / corners.length };
}

/** Whether a spot is inside convex corners. */
export function isInside(spot: Spot, corners: Corners): boolean {
    const sides = corners.map((corner, i) => {
        const next = corners[(i + 1) % corners.length] ?? corner;
        return (next.x - corner.x) * (spot.y - corner.y) - (next.y - corner.y) * (spot.x - corner.x);
    });
    return sides.every((side) => side >= 0) || sides.every((side) => side <= 0);
}

export function overlap(one: Corners, other: Corners): boolean {
    return isInside(centreOf(one), other) || isInside(centreOf(other), one);
}

function distance(one: Spot, other: Spot): number {
    return Math.hypot(one.x - other.x, one.y - other.y);
}

/** Whether corners are those of a square that is seen a little from the side. */
export function isSquare(corners: Corners): boolean {
    const isSimilar = (lengths: number[]): boolean => Math.max(...lengths) <= 1.6 * Math.min(...lengths);
    const to = (steps: number): number[] =>
        corners.map((corner, i) => distance(corner, corners[(i + steps) % corners.length] ?? corner));
    return isSimilar(to(1)) && isSimilar(to(2));
}

// Spots all over the corners, not quite to their edges.
function spotsIn([topLeft, topRight, bottomRight, bottomLeft]: Corners): Spot[] {
    if (!topLeft || !topRight || !bottomRight || !bottomLeft) {
        return [];
    }
    const between = (one: Spot, other: Spot, share: number): Spot => ({
        x: one.x + share * (other.x - one.x),
        y: one.y + share * (other.y - one.y),
    });
    const shares = [0.08, 0.29, 0.5, 0.71, 0.92];
    return shares.flatMap((down) =>
        shares.map((across) =>
            between(between(topLeft, topRight, across), between(bottomLeft, bottomRight, across), down),
        ),
    );
}

/** Whether one has a part of the other inside it. */
export function collide(one: Corners, other: Corners): boolean {
    return spotsIn(one).some((spot) => isInside(spot, other)) || spotsIn(other).some((spot) => isInside(spot, one));
}

/** The items in rows from the top, and each row from the left, even if the sheet is a little turned. */
export function inReadingOrder<Item extends { readonly corners: Corners }>(items: readonly Item[]): Item[] {
    const x = (item: Item): number => centreOf(item.corners).x;
    const y = (item: Item): number => centreOf(item.corners).y;
    const rows: Item[][] = [];
    for (const item of items.slice().sort((left, right) => x(left) - x(right))) {
        const distance = (row: Item[]): number => Math.abs(y(row[row.length - 1] ?? item) - y(item));
        const nearest = rows.slice().sort((left, right) => distance(left) - distance(right))[0];
        if (nearest !== undefined && distance(nearest) <= boxAround(item.corners).height / 2) {
            nearest.push(item);
        } else {
            rows.push([item]);
        }
    }
    const top = (row: Item[]): number => Math.min(...row.map(y));
    return rows.sort((upper, lower) => top(upper) - top(lower)).flat();
}
